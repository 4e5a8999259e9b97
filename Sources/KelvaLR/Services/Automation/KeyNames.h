#pragma once

#include "Models/KeyModifiers.h"

#include <QLatin1StringView>
#include <QStringView>

#include <array>

/// What people call the keys, in lower case.
namespace KelvaLR::KeyNames {

using namespace Qt::StringLiterals;

struct KeyRow
{
    QStringView name;
    quint16 code;
};

// The kVK_* constants of Carbon's HIToolbox/Events.h, for the US ANSI layout.
inline constexpr KeyRow keyTable[] = {
    {u"a", 0},      {u"s", 1},      {u"d", 2},       {u"f", 3},       {u"h", 4},          {u"g", 5},
    {u"z", 6},      {u"x", 7},      {u"c", 8},       {u"v", 9},       {u"b", 11},         {u"q", 12},
    {u"w", 13},     {u"e", 14},     {u"r", 15},      {u"y", 16},      {u"t", 17},         {u"o", 31},
    {u"u", 32},     {u"i", 34},     {u"p", 35},      {u"l", 37},      {u"j", 38},         {u"k", 40},
    {u"n", 45},     {u"m", 46},     {u"1", 18},      {u"2", 19},      {u"3", 20},         {u"4", 21},
    {u"6", 22},     {u"5", 23},     {u"9", 25},      {u"7", 26},      {u"8", 28},         {u"0", 29},
    {u"=", 24},     {u"-", 27},     {u"]", 30},      {u"[", 33},      {u"'", 39},         {u";", 41},
    {u"\\", 42},    {u",", 43},     {u"/", 44},      {u".", 47},      {u"`", 50},         {u"return", 36},
    {u"enter", 36}, {u"tab", 48},   {u"space", 49},  {u"delete", 51}, {u"backspace", 51}, {u"escape", 53},
    {u"esc", 53},   {u"left", 123}, {u"right", 124}, {u"down", 125},  {u"up", 126},
};

struct ModifierRow
{
    std::array<QStringView, 2> words;
    KeyModifier modifier;
    QLatin1StringView displayName;
};

/// In the order in which a display name lists them.
inline constexpr ModifierRow modifierTable[] = {
    {{u"command", u"cmd"}, KeyModifier::maskCommand, "Command"_L1},
    {{u"shift", u"shift"}, KeyModifier::maskShift, "Shift"_L1},
    {{u"option", u"alt"}, KeyModifier::maskAlternate, "Option"_L1},
    {{u"control", u"ctrl"}, KeyModifier::maskControl, "Control"_L1},
};

} // namespace KelvaLR::KeyNames
