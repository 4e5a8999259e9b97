#include "NearWords.h"

#include "Platform/Linux/Speech/PronouncingDictionary.h"

#include <algorithm>
#include <array>
#include <vector>

namespace KelvaLR::SpeechModels {

namespace {

constexpr double lost = 0.9;

using Phones = QByteArrayList;

bool isVowel(const QByteArray &phone)
{
    return QByteArrayView("AEIOU").contains(phone.front());
}

/// Consonants that are made alike.
bool areKin(const QByteArray &one, const QByteArray &other)
{
    static const std::array<QByteArrayList, 3> kinds{{
        {"P", "B", "T", "D", "K", "G"},
        {"V", "F", "B", "W", "M", "DH", "TH"},
        {"L", "R", "W", "Y"},
    }};
    return std::ranges::any_of(
        kinds, [&](const QByteArrayList &kind) { return kind.contains(one) && kind.contains(other); });
}

double change(const QByteArray &one, const QByteArray &other)
{
    if (one == other) {
        return 0;
    }
    if (isVowel(one) != isVowel(other)) {
        return 1.5;
    }
    if (isVowel(one)) {
        return 0.5;
    }
    return areKin(one, other) ? 0.6 : 1;
}

} // namespace

double distance(const QByteArray &pronunciation, const QByteArray &other)
{
    const Phones from = pronunciation.split(' ');
    const Phones to = other.split(' ');
    std::vector<double> row(static_cast<std::size_t>(to.size()) + 1);
    for (std::size_t column = 0; column < row.size(); ++column) {
        row[column] = lost * static_cast<double>(column);
    }
    for (const QByteArray &phone : from) {
        double diagonal = row[0];
        row[0] += lost;
        for (std::size_t column = 1; column < row.size(); ++column) {
            const double changed = diagonal + change(phone, to.at(static_cast<qsizetype>(column) - 1));
            diagonal = row[column];
            row[column] = std::min({changed, row[column] + lost, row[column - 1] + lost});
        }
    }
    return row.back();
}

QStringList wordsNear(const QByteArray &pronunciation, Nearness nearness,
                      const PronouncingDictionary &dictionary)
{
    QStringList near;
    for (const auto &[word, ways] : dictionary.words().asKeyValueRange()) {
        const auto isNear = [&](const QByteArray &way) {
            const double far = distance(pronunciation, way);
            return far >= nearness.nearest && far <= nearness.farthest;
        };
        const auto isAlmostTheSame = [&](const QByteArray &way) {
            return distance(pronunciation, way) < nearness.nearest;
        };
        if (std::ranges::any_of(ways, isNear) && std::ranges::none_of(ways, isAlmostTheSame)) {
            near.append(word);
        }
    }
    near.sort();
    return near;
}

} // namespace KelvaLR::SpeechModels
