#include "TrigramModel.h"

#include <QHash>

#include <array>
#include <cmath>
#include <map>
#include <vector>

namespace KelvaLR::SpeechModels {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t order = 3;
constexpr double discount = 0.5;
constexpr double never = -99; ///< the logarithm that the format has for what cannot occur

using Gram = std::vector<int>; ///< words by their numbers

/// What has been counted of the words that follow a history.
struct Followers
{
    std::map<int, int> counts;
    int total = 0;

    /// The share of the probability that is left to shorter histories.
    [[nodiscard]] double leftOver() const { return discount * static_cast<double>(counts.size()) / total; }
};

class Model
{
public:
    explicit Model(const QStringList &sentences)
    {
        for (const QString &sentence : sentences) {
            count(numbered(u"<s> %1 </s>"_s.arg(sentence).split(u' ')));
        }
    }

    [[nodiscard]] QByteArray lines(std::size_t length, int &size) const
    {
        QByteArray text;
        for (const auto &[history, followers] : m_counts[length]) {
            for (const auto &[word, count] : followers.counts) {
                Gram gram = history;
                gram.push_back(word);
                text += line(std::log10(probability(history, word)), gram);
                ++size;
            }
        }
        if (length == 0) { // a sentence begins, but nothing is followed by its beginning
            text += line(never, {begin});
            ++size;
        }
        return text;
    }

private:
    static constexpr int begin = 0; ///< the first word of the first sentence

    Gram numbered(const QStringList &words)
    {
        Gram numbers;
        for (const QString &word : words) {
            const auto known = m_numbers.constFind(word);
            if (known != m_numbers.constEnd()) {
                numbers.push_back(*known);
                continue;
            }
            numbers.push_back(static_cast<int>(m_words.size()));
            m_numbers.insert(word, numbers.back());
            m_words.append(word.toUtf8());
        }
        return numbers;
    }

    void count(const Gram &words)
    {
        for (std::size_t at = 1; at < words.size(); ++at) {
            for (std::size_t length = 0; length < order && length <= at; ++length) {
                const auto last = words.begin() + static_cast<std::ptrdiff_t>(at);
                Followers &followers =
                    m_counts[length][Gram(last - static_cast<std::ptrdiff_t>(length), last)];
                ++followers.counts[words[at]];
                ++followers.total;
            }
        }
    }

    [[nodiscard]] const Followers *followersOf(const Gram &history) const
    {
        const auto found = m_counts[history.size()].find(history);
        return found == m_counts[history.size()].end() ? nullptr : &found->second;
    }

    [[nodiscard]] double probability(const Gram &history, int word) const
    {
        const double shorter = history.empty() ? 1.0 / static_cast<double>(followersOf({})->counts.size())
                                               : probability(Gram(history.begin() + 1, history.end()), word);
        const Followers *followers = followersOf(history);
        if (followers == nullptr) {
            return shorter;
        }
        const auto count = followers->counts.find(word);
        const double seen = count == followers->counts.end() ? 0 : count->second - discount;
        return seen / followers->total + followers->leftOver() * shorter;
    }

    /// A probability, the words, and, unless they are the longest, what the probability of a word behind a
    /// shorter history is multiplied with where it has not been seen behind these words.
    [[nodiscard]] QByteArray line(double logarithm, const Gram &gram) const
    {
        QByteArray text = QByteArray::number(logarithm, 'f', 4);
        for (const int word : gram) {
            text += ' ' + m_words.at(word);
        }
        if (gram.size() < order) {
            const Followers *followers = followersOf(gram);
            const double backOff = followers == nullptr ? 1 : followers->leftOver();
            text += ' ' + QByteArray::number(std::log10(backOff), 'f', 4);
        }
        return text + '\n';
    }

    QHash<QString, int> m_numbers;
    QByteArrayList m_words;
    std::array<std::map<Gram, Followers>, order> m_counts; ///< by the length of the history
};

} // namespace

QByteArray trigramModel(const QStringList &sentences)
{
    const Model model(sentences);
    QByteArray head = "\\data\\\n";
    QByteArray body;
    for (std::size_t length = 0; length < order; ++length) {
        int size = 0;
        const QByteArray name = QByteArray::number(length + 1);
        body += "\n\\" + name + "-grams:\n" + model.lines(length, size);
        head += "ngram " + name + '=' + QByteArray::number(size) + '\n';
    }
    return head + body + "\n\\end\\\n";
}

} // namespace KelvaLR::SpeechModels
