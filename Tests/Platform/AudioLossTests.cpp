// What is said, and what still works, when the sound system is absent, goes away or hangs. Each test has a
// process of its own, since the connection to the sound system belongs to the process.

#include "Platform/Linux/QtAudioInput.h"
#include "Platform/Linux/QtAudioOutput.h"
#include "Platform/SoundSystem.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <atomic>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr AudioFormat reply{24'000, 1, AudioFormat::SampleType::int16};
constexpr AudioTiming impatient{.answer = 500ms, .stalled = 400ms};

const QStringList bothDisconnected{u"The microphone was disconnected."_s, u"The speaker was disconnected."_s};

QByteArray seconds(int count)
{
    return QByteArray(qsizetype{48'000} * count, '\1');
}

class AudioLoss : public testing::Test
{
protected:
    std::expected<void, QString> capture()
    {
        return input.start(
            2'048, [this](QByteArrayView, qsizetype, const AudioFormat &) { ++blocks; },
            [this](const QString &sentence) { failures.append(sentence); });
    }

    std::expected<void, QString> open()
    {
        return output.start(
            reply, [this] { ++finishes; }, [this](const QString &sentence) { failures.append(sentence); });
    }

    bool capturesAgain()
    {
        return waitUntil([this] { return capture().has_value(); }) &&
               waitUntil([this] { return blocks > 0; });
    }

    Testing::SoundSystem soundSystem;
    AudioThread thread;
    std::atomic<int> blocks = 0;
    int finishes = 0;
    QStringList failures;
    QtAudioInput input{thread, impatient};
    QtAudioOutput output{thread, impatient};
};

QString errorOf(const auto &result)
{
    return result ? QString() : result.error();
}

TEST_F(AudioLoss, saysThatThereIsNoDeviceWithoutASoundSystem)
{
    EXPECT_EQ(errorOf(input.format()), u"No microphone was found."_s);
    EXPECT_EQ(errorOf(capture()), u"No microphone was found."_s);
    EXPECT_EQ(errorOf(open()), u"No speaker was found."_s);
    EXPECT_TRUE(Testing::waitForTask(input.requestAccess())); // nobody denies it
    output.play(seconds(1));
    EXPECT_FALSE(output.isPlaying());
    input.stop();
    output.stop();
    EXPECT_EQ(failures, QStringList());
}

TEST_F(AudioLoss, endsBothOnceWhenTheSoundSystemDiesAndWorksAgainAfterwards)
{
    ASSERT_TRUE(soundSystem.begin());
    ASSERT_EQ(errorOf(open()), QString());
    output.play(seconds(30));
    ASSERT_EQ(errorOf(capture()), QString());
    ASSERT_TRUE(waitUntil([this] { return blocks > 5; }));
    soundSystem.end();
    ASSERT_TRUE(waitUntil([this] { return failures.size() == 2; }));
    failures.sort();
    EXPECT_EQ(failures, bothDisconnected);
    EXPECT_FALSE(output.isPlaying());
    EXPECT_EQ(errorOf(capture()), u"The microphone could not be opened."_s);
    output.play(seconds(1)); // what is played next says it again, for itself
    EXPECT_TRUE(waitUntil([this] { return failures.size() == 3; }));
    EXPECT_EQ(failures.last(), u"The speaker could not be opened."_s);
    blocks = 0;
    ASSERT_TRUE(soundSystem.begin());
    EXPECT_TRUE(capturesAgain());
    EXPECT_EQ(failures.size(), 3);
    EXPECT_EQ(finishes, 0);
}

TEST_F(AudioLoss, endsBothWhenTheDevicesArePulledOut)
{
    ASSERT_TRUE(soundSystem.begin());
    ASSERT_EQ(errorOf(capture()), QString());
    ASSERT_EQ(errorOf(open()), QString());
    output.play(seconds(30));
    ASSERT_TRUE(waitUntil([this] { return blocks > 5; }));
    ASSERT_EQ(QProcess::execute(u"pactl"_s, {u"unload-module"_s, u"module-null-sink"_s}), 0);
    ASSERT_TRUE(waitUntil([this] { return failures.size() == 2; }));
    failures.sort();
    EXPECT_EQ(failures, bothDisconnected);
    EXPECT_FALSE(output.isPlaying());
}

TEST_F(AudioLoss, doesNotWaitForASoundSystemThatHangs)
{
    ASSERT_TRUE(soundSystem.begin());
    ASSERT_EQ(errorOf(open()), QString());
    soundSystem.signalDaemon(SIGSTOP);
    EXPECT_EQ(errorOf(capture()), u"The microphone does not answer."_s);
    output.play(seconds(1));
    ASSERT_TRUE(waitUntil([this] { return !failures.isEmpty(); }));
    EXPECT_EQ(failures, QStringList(u"The speaker does not answer."_s));
    EXPECT_EQ(errorOf(open()), u"The speaker does not answer."_s);
    input.stop();
    soundSystem.signalDaemon(SIGCONT);
    EXPECT_TRUE(capturesAgain());
    EXPECT_EQ(failures.size(), 1);
}

} // namespace
