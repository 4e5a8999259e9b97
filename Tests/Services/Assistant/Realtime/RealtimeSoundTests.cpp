// A session on a real sound system, whose speaker is heard by its microphone.

#include "Services/Assistant/Realtime/RealtimeSessionFixture.h"

#include "Platform/Linux/QtAudioInput.h"
#include "Platform/Linux/QtAudioOutput.h"
#include "Platform/SoundRecording.h"

#include <QProcess>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

class RealtimeSoundTest : public RealtimeSessionTest
{
protected:
    RealtimeSoundTest() { useService(server.baseUrl(), timing(), microphone, speaker); }

    void TearDown() override { service.reset(); } // it is the devices that end last

    /// All that has come up so far.
    [[nodiscard]] QByteArray heardByTheService() const
    {
        QByteArray pcm;
        for (const QJsonObject &event : server.events) {
            pcm += QByteArray::fromBase64(event.value("audio"_L1).toString().toLatin1());
        }
        return pcm;
    }

    AudioThread thread;
    QtAudioInput microphone{thread};
    QtAudioOutput speaker{thread};
};

TEST_F(RealtimeSoundTest, speechGoesUpWholeAndAReplyComesOutWholeWhileNothingGoesUp)
{
    open(RealtimeSessionKind::voice);
    const QString wav = folder.filePath(u"speech.wav"_s);
    writeSpeech(wav);
    QProcess player;
    player.start(u"paplay"_s, {wav});
    EXPECT_TRUE(waitUntil([&] { return displacedSpeech(samplesOf(heardByTheService())).isEmpty(); }))
        << displacedSpeech(samplesOf(heardByTheService())).join(u' ').toStdString();
    ASSERT_TRUE(waitUntil([&] { return player.state() == QProcess::NotRunning; }));

    SoundRecording recording;
    ASSERT_TRUE(recording.begin());
    const QByteArray reply = noiseLasting(1'500, 7);
    constexpr qsizetype pieceSize = 4'800; // 100 ms
    for (qsizetype i = 0; i < reply.size(); i += pieceSize) {
        server.send(QJsonObject{{u"type"_s, u"response.output_audio.delta"_s},
                                {u"delta"_s, QString::fromLatin1(reply.mid(i, pieceSize).toBase64())}});
    }
    settle();
    const qsizetype eventsBefore = server.events.size();
    EXPECT_EQ(recording.soundsUntil(reply), QList<QByteArray>{reply});
    EXPECT_EQ(server.events.size(), eventsBefore) << "nothing is sent while the assistant speaks";
    EXPECT_EQ(errors, QStringList());
}

} // namespace
} // namespace KelvaLR::Testing
