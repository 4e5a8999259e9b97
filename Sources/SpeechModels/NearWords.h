#pragma once

#include <QByteArray>
#include <QStringList>

namespace KelvaLR {
class PronouncingDictionary;
}

namespace KelvaLR::SpeechModels {

/// How differently two words sound, in phones that would have to change: a vowel that becomes another one
/// counts half, a consonant that is made at the same place a little more.
[[nodiscard]] double distance(const QByteArray &pronunciation, const QByteArray &other);

/// Distances between which words are near to another one.
struct Nearness
{
    double nearest = 0;
    double farthest = 0;
};

/// The words of the dictionary that can be mistaken for another one. What sounds nearer is left out: it is
/// taken for that word.
[[nodiscard]] QStringList wordsNear(const QByteArray &pronunciation, Nearness nearness,
                                    const PronouncingDictionary &dictionary);

} // namespace KelvaLR::SpeechModels
