#include "NearWords.h"
#include "Platform/Linux/Speech/PronouncingDictionary.h"
#include "TrigramModel.h"

#include <gtest/gtest.h>

#include <QHash>

#include <cmath>

using namespace KelvaLR;
using namespace KelvaLR::SpeechModels;
using namespace Qt::StringLiterals;

TEST(NearWords, areThoseThatSoundAlikeButNotAlmostTheSame)
{
    PronouncingDictionary dictionary;
    dictionary.set(u"kelva"_s, {"K EH L V AH"});
    dictionary.set(u"elva"_s, {"EH L V AH"});
    dictionary.set(u"calvin"_s, {"K AE L V IH N"});
    dictionary.set(u"kelp"_s, {"K EH L P"});
    dictionary.set(u"exposure"_s, {"IH K S P OW ZH ER"});
    EXPECT_EQ(wordsNear("K EH L V AH", {1.0, 2.2}, dictionary), (QStringList{u"calvin"_s, u"kelp"_s}));
    EXPECT_EQ(wordsNear("K EH L V AH", {0.5, 1.5}, dictionary), QStringList{u"elva"_s});
}

TEST(TrigramModel, givesEveryHistoryAWholeProbability)
{
    const QByteArray model = trigramModel({u"hey kelva next"_s, u"hey kelva"_s, u"hey calvin"_s});
    QHash<QByteArray, double> probabilities;
    for (const QByteArray &line : model.split('\n')) {
        const QByteArrayList parts = line.split(' ');
        if (parts.size() < 2 || parts.first() == "ngram") {
            continue;
        }
        const qsizetype order = parts.size() - (parts.size() > 2 && parts.last().contains('.') ? 2 : 1);
        if (order == 1 && parts.at(1) != "<s>") {
            probabilities[{}] += std::pow(10, parts.first().toDouble());
        } else if (parts.contains("<s>") && order == 2) {
            probabilities["<s>"] += std::pow(10, parts.first().toDouble());
        }
    }
    EXPECT_NEAR(probabilities.value({}), 1, 0.001);
    EXPECT_GT(probabilities.value("<s>"), 0.8) << "but for what is left to words that never began a sentence";
    EXPECT_LT(probabilities.value("<s>"), 1);
    EXPECT_TRUE(model.contains("ngram 1=6\n")) << model.constData();
}
