// The real adapters on a real sound system, whose speaker is heard by its microphone.

#include "Platform/Linux/QtAudioInput.h"
#include "Platform/Linux/QtAudioOutput.h"
#include "Platform/SoundRecording.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

constexpr AudioFormat reply{24'000, 1, AudioFormat::SampleType::int16};

class AudioDevices : public testing::Test
{
protected:
    static void SetUpTestSuite() { thread = std::make_unique<AudioThread>(); }

    static void TearDownTestSuite() { thread.reset(); }

    void open(const AudioFormat &format = reply)
    {
        const auto opened = output.start(format, [this] { ++finishes; }, failure());
        ASSERT_TRUE(opened) << qPrintable(opened.error());
    }

    void capture(qsizetype blockFrames, AudioInput::BlockHandler onBlock)
    {
        const auto started = input.start(blockFrames, std::move(onBlock), failure());
        ASSERT_TRUE(started) << qPrintable(started.error());
    }

    bool finished(int times = 1)
    {
        return waitUntil([&] { return finishes == times; });
    }

    static AudioInput::FailureHandler failure()
    {
        return [](const QString &sentence) { ADD_FAILURE() << qPrintable(sentence); };
    }

    static std::unique_ptr<AudioThread>
        thread; ///< the process has one connection, which stays with its thread
    int finishes = 0;
    QtAudioInput input{*thread};
    QtAudioOutput output{*thread};
};

std::unique_ptr<AudioThread> AudioDevices::thread;

TEST_F(AudioDevices, capturesAllThatIsSpokenInOrder)
{
    const auto format = input.format();
    ASSERT_TRUE(format) << qPrintable(format.error());
    ASSERT_EQ(*format, (AudioFormat{24'000, 1, AudioFormat::SampleType::int16}));

    std::mutex access;
    QByteArray captured;
    std::atomic<int> misshapen = 0;
    capture(2'048, [&](QByteArrayView samples, qsizetype frames, const AudioFormat &blockFormat) {
        misshapen += frames != 2'048 || samples.size() != 4'096 || blockFormat != *format ||
                     QThread::currentThread() == QCoreApplication::instance()->thread();
        const std::lock_guard lock(access);
        captured.append(samples);
    });
    const auto displaced = [&] {
        const std::lock_guard lock(access);
        return displacedSpeech(samplesOf(captured));
    };

    const QTemporaryDir folder;
    const QString file = folder.filePath(u"speech.wav"_s);
    writeSpeech(file);
    QProcess player;
    player.start(u"paplay"_s, {file});
    EXPECT_TRUE(waitUntil([&] { return displaced().isEmpty(); })) << displaced().join(u", "_s).toStdString();
    input.stop();
    EXPECT_EQ(misshapen, 0);
    EXPECT_TRUE(waitUntil([&] { return player.state() == QProcess::NotRunning; }));
}

TEST_F(AudioDevices, playsWhatIsQueuedWithoutAGapAndSaysWhenItHasBeenHeard)
{
    SoundRecording recording;
    ASSERT_TRUE(recording.begin());
    open();
    const QByteArray noise = noiseLasting(1'500, 1);
    QElapsedTimer clock;
    clock.start();
    qsizetype size = 2;
    for (qsizetype place = 0; place < noise.size(); place += size, size = size * 3 % 19'996 + 2) {
        output.play(noise.mid(place, size));
    }
    output.play({});
    EXPECT_TRUE(output.isPlaying());
    ASSERT_TRUE(finished());
    EXPECT_GE(clock.elapsed(), 1'500); // sound takes its time
    EXPECT_FALSE(output.isPlaying());
    const QByteArray afterTheEnd = noiseLasting(30, 2); // shorter than what the sound system holds in advance
    output.play(afterTheEnd);
    EXPECT_TRUE(output.isPlaying());
    ASSERT_TRUE(finished(2));
    EXPECT_EQ(recording.soundsUntil(afterTheEnd), QList<QByteArray>({noise, afterTheEnd}));
}

TEST_F(AudioDevices, playsAtTheRateOfTheSound)
{
    SoundRecording recording;
    ASSERT_TRUE(recording.begin());
    open({16'000, 1, AudioFormat::SampleType::int16});
    const QByteArray noise = noiseLasting(500, 7);
    output.play(noise);
    ASSERT_TRUE(finished());
    EXPECT_TRUE(waitUntil([&] { return std::abs(recording.soundSize() - noise.size() * 24 / 16) < 500; }))
        << recording.soundSize();
}

TEST_F(AudioDevices, dropsWhatIsQueuedWhenItIsStopped)
{
    SoundRecording recording;
    ASSERT_TRUE(recording.begin());
    open();
    const QByteArray dropped = noiseLasting(20'000, 3);
    const QByteArray next = noiseLasting(300, 4);
    output.play(dropped);
    ASSERT_TRUE(waitUntil([&] { return recording.soundSize() > 0; }));
    output.stop();
    EXPECT_FALSE(output.isPlaying());
    output.play(next);
    ASSERT_TRUE(finished());

    const QList<QByteArray> sounds = recording.soundsUntil(next);
    ASSERT_EQ(sounds.size(), 2);
    EXPECT_TRUE(dropped.startsWith(sounds.first()));
    EXPECT_EQ(sounds.last(), next);
    EXPECT_EQ(finishes, 1);
}

TEST_F(AudioDevices, isNotFinishedWhileMoreIsPlayed)
{
    open();
    for (int turn = 0; turn < 10; ++turn) {
        output.play(noiseLasting(100, 5));
        ASSERT_TRUE(waitUntil([delay = QDeadlineTimer(90)] { return delay.hasExpired(); }));
        EXPECT_EQ(finishes, 0);
    }
    ASSERT_TRUE(finished());
}

TEST_F(AudioDevices, leaveNothingBehindHoweverOftenTheyAreStarted)
{
    const auto held = [] {
        return QPair(QDir(u"/proc/self/fd"_s).count(), QDir(u"/proc/self/task"_s).count());
    };
    std::atomic<bool> isStopped = false;
    std::atomic<int> late = 0;
    std::atomic<int> blocks = 0;
    std::optional<QPair<uint, uint>> before;
    for (int turn = 0; turn < 50; ++turn) {
        isStopped = false;
        capture(64, [&](QByteArrayView, qsizetype, const AudioFormat &) {
            late += isStopped;
            ++blocks;
        });
        open();
        output.play(noiseLasting(1'000, 6));
        if (turn % 10 == 0) {
            const int soFar = blocks;
            ASSERT_TRUE(waitUntil([&] { return blocks > soFar; }));
        }
        input.stop();
        isStopped = true;
        output.stop();
        if (turn == 0) {
            before = held();
        }
    }
    EXPECT_EQ(late, 0);
    EXPECT_TRUE(waitUntil([] { return openStreams().isEmpty(); })) << openStreams().toStdString();
    EXPECT_EQ(held(), before);
    EXPECT_EQ(finishes, 0);
}

} // namespace
