#include "Services/Speech/SpeechFeedbackService.h"

#include "Platform/SpeechSynthesizer.h"
#include "Support/PrintQt.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

/// Writes down what it is told; ends are reported when the event loop turns, as by a real voice.
class RecordingSynthesizer final : public SpeechSynthesizer
{
public:
    void speak(const QString &text, EndHandler onEnd) override
    {
        calls.append(text);
        m_onEnd = std::move(onEnd);
    }

    void stopSpeaking() override
    {
        calls.append(u"(stop)"_s);
        end(SpeechEnd::cancelled);
    }

    bool isSpeaking() const override { return static_cast<bool>(m_onEnd); }

    void end(SpeechEnd how)
    {
        QTimer::singleShot(0, &m_reports, [onEnd = std::exchange(m_onEnd, {}), how] { onEnd(how); });
    }

    QStringList calls;

private:
    EndHandler m_onEnd;
    QObject m_reports;
};

class SpeechFeedbackServiceTest : public testing::Test
{
protected:
    void speak(const QString &text)
    {
        service->speak(text, [this, text] { completed.append(text); });
    }

    void end(SpeechEnd how)
    {
        synthesizer.end(how);
        QCoreApplication::processEvents();
    }

    RecordingSynthesizer synthesizer;
    QStringList completed;
    std::unique_ptr<SpeechFeedbackService> service = std::make_unique<SpeechFeedbackService>(synthesizer);
};

} // namespace

TEST_F(SpeechFeedbackServiceTest, speaksTheTrimmedTextAndCompletesOnceHoweverItEnds)
{
    for (const SpeechEnd how : {SpeechEnd::finished, SpeechEnd::failed}) {
        synthesizer.calls.clear();
        completed.clear();
        speak(u"\n  two  words \t"_s);
        EXPECT_EQ(synthesizer.calls, QStringList{u"two  words"_s});
        EXPECT_TRUE(completed.isEmpty());
        end(how);
        EXPECT_EQ(completed, QStringList{u"\n  two  words \t"_s});
    }
}

TEST_F(SpeechFeedbackServiceTest, aBlankTextCompletesAtOnceAndLeavesTheOneBeingSpokenAlone)
{
    speak(u"long story"_s);
    speak(u" \n\t"_s);
    service->speak(u" "_s, {});
    EXPECT_EQ(completed, QStringList{u" \n\t"_s});
    EXPECT_EQ(synthesizer.calls, QStringList{u"long story"_s});
    end(SpeechEnd::finished);
    EXPECT_EQ(completed.last(), u"long story"_s);
}

TEST_F(SpeechFeedbackServiceTest, aCompletionWaitsForItsOwnUtteranceAndMaySpeakAgain)
{
    speak(u"first"_s);
    speak(u"second"_s);
    EXPECT_EQ(synthesizer.calls, (QStringList{u"first"_s, u"(stop)"_s, u"second"_s}));
    QCoreApplication::processEvents(); // the first one is reported as cancelled
    EXPECT_TRUE(completed.isEmpty());
    end(SpeechEnd::finished);
    EXPECT_EQ(completed, QStringList{u"second"_s});

    speak(u"third"_s);
    service->speak(u"fourth"_s, {});
    end(SpeechEnd::finished);
    EXPECT_EQ(completed, QStringList{u"second"_s});

    service->speak(u"question"_s, [this] { speak(u"answer"_s); });
    end(SpeechEnd::finished);
    end(SpeechEnd::finished);
    EXPECT_EQ(completed, (QStringList{u"second"_s, u"answer"_s}));
}

TEST_F(SpeechFeedbackServiceTest, whatIsStoppedOrOutlivesTheServiceCompletesNothing)
{
    speak(u"stopped"_s);
    service->stop();
    EXPECT_FALSE(synthesizer.isSpeaking());
    QCoreApplication::processEvents();
    speak(u"orphaned"_s);
    service.reset();
    end(SpeechEnd::finished);
    EXPECT_TRUE(completed.isEmpty());
}
