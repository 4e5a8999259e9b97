#include "Platform/Linux/X11Keysyms.h"

#include <QChar>

#include <algorithm>
#include <iterator>

#include <X11/keysym.h>

namespace KelvaLR {

namespace {

struct VirtualKeyRow
{
    quint16 code;
    xcb_keysym_t keysym;
};

// The kVK_* constants of Carbon's HIToolbox/Events.h, for the US ANSI layout.
constexpr VirtualKeyRow virtualKeyTable[] = {
    {0, XK_a},       {1, XK_s},          {2, XK_d},
    {3, XK_f},       {4, XK_h},          {5, XK_g},
    {6, XK_z},       {7, XK_x},          {8, XK_c},
    {9, XK_v},       {11, XK_b},         {12, XK_q},
    {13, XK_w},      {14, XK_e},         {15, XK_r},
    {16, XK_y},      {17, XK_t},         {18, XK_1},
    {19, XK_2},      {20, XK_3},         {21, XK_4},
    {22, XK_6},      {23, XK_5},         {24, XK_equal},
    {25, XK_9},      {26, XK_7},         {27, XK_minus},
    {28, XK_8},      {29, XK_0},         {30, XK_bracketright},
    {31, XK_o},      {32, XK_u},         {33, XK_bracketleft},
    {34, XK_i},      {35, XK_p},         {36, XK_Return},
    {37, XK_l},      {38, XK_j},         {39, XK_apostrophe},
    {40, XK_k},      {41, XK_semicolon}, {42, XK_backslash},
    {43, XK_comma},  {44, XK_slash},     {45, XK_n},
    {46, XK_m},      {47, XK_period},    {48, XK_Tab},
    {49, XK_space},  {50, XK_grave},     {51, XK_BackSpace},
    {53, XK_Escape}, {123, XK_Left},     {124, XK_Right},
    {125, XK_Down},  {126, XK_Up},
};

constexpr xcb_keysym_t unicodeKeysym = 0x01000000; ///< plus the code point: X11 protocol, appendix A
constexpr char32_t lastOfLatin1 = 0xff;

} // namespace

std::optional<xcb_keysym_t> keysymOfVirtualKey(quint16 virtualKeyCode)
{
    const auto *row = std::ranges::find(virtualKeyTable, virtualKeyCode, &VirtualKeyRow::code);
    return row == std::end(virtualKeyTable) ? std::nullopt : std::optional(row->keysym);
}

std::optional<xcb_keysym_t> keysymOfCharacter(char32_t character)
{
    if (character == U'\n') {
        return XK_Return;
    }
    if (character == U'\t') {
        return XK_Tab;
    }
    if (character > QChar::LastValidCodePoint || QChar::isSurrogate(character) ||
        QChar::category(character) == QChar::Other_Control) {
        return std::nullopt;
    }
    return character <= lastOfLatin1 ? character : unicodeKeysym + character;
}

} // namespace KelvaLR
