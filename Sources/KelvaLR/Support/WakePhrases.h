#pragma once

#include "Support/PhraseTable.h"

namespace KelvaLR {

/// "Hey Kelva" and what it is taken for, in the order in which they are tested.
inline constexpr PhraseList<10> wakePhrases{
    u"hey kelva", u"hey kelwa", u"hey kelvie", u"hey kelvy", u"hey elva",
    u"hey elvie", u"hey kel",   u"hey belva",  u"hey belwa", u"hey melvy",
};

/// So many of them, from the first, count inside a realtime session, whose transcripts are closer to what
/// was said.
inline constexpr std::size_t wakePhrasesInSession = 6;

} // namespace KelvaLR
