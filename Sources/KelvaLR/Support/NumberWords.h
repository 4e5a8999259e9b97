#pragma once

#include "Support/PhraseTable.h"

/// The words in which English says its numbers, in lower case.
namespace KelvaLR::NumberWords {

inline constexpr std::array<PhraseRow<QChar>, 4> signTable{{
    {u"plus", u'+'},
    {u"positive", u'+'},
    {u"minus", u'-'},
    {u"negative", u'-'},
}};

inline constexpr std::array<PhraseRow<int>, 20> unitTable{{
    {u"zero", 0},     {u"one", 1},      {u"two", 2},        {u"three", 3},     {u"four", 4},
    {u"five", 5},     {u"six", 6},      {u"seven", 7},      {u"eight", 8},     {u"nine", 9},
    {u"ten", 10},     {u"eleven", 11},  {u"twelve", 12},    {u"thirteen", 13}, {u"fourteen", 14},
    {u"fifteen", 15}, {u"sixteen", 16}, {u"seventeen", 17}, {u"eighteen", 18}, {u"nineteen", 19},
}};

inline constexpr std::array<PhraseRow<int>, 8> tensTable{{
    {u"twenty", 20},
    {u"thirty", 30},
    {u"forty", 40},
    {u"fifty", 50},
    {u"sixty", 60},
    {u"seventy", 70},
    {u"eighty", 80},
    {u"ninety", 90},
}};

inline constexpr QStringView hundred = u"hundred";
inline constexpr QStringView thousand = u"thousand";
inline constexpr QStringView point = u"point";

} // namespace KelvaLR::NumberWords
