#pragma once

#include "Support/PhraseTable.h"

namespace KelvaLR {

/// What ends a voice session when it is all that was said.
inline constexpr PhraseList<12> stopPhrases{
    u"stop",      u"done",       u"all done", u"thats it",    u"that is it",     u"cancel",
    u"nevermind", u"never mind", u"end",      u"end session", u"stop listening", u"close connection",
};

/// Words that end it wherever they stand.
inline constexpr PhraseList<2> stopWords{u"stop", u"cancel"};

} // namespace KelvaLR
