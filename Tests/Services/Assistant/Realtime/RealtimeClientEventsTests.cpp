#include "Services/Assistant/Realtime/RealtimeClientEvents.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(RealtimeClientEvents, areWhatTheServiceIsSent)
{
    using namespace RealtimeClientEvents;
    QByteArray pcm; // its base64 has every kind of character: letters, digits, "+", "/" and padding
    for (int sample = 0; sample < 256; ++sample) {
        pcm.append(static_cast<char>(sample));
    }
    const std::pair<QString, QByteArray> cases[] = {
        {u"session-update-voice.json"_s, sessionUpdate(RealtimeSessionKind::voice)},
        {u"session-update-text.json"_s, sessionUpdate(RealtimeSessionKind::text)},
        {u"append-audio.json"_s, appendAudio(pcm)},
        {u"clear-input-audio.json"_s, clearInputAudio()},
        {u"function-call-output.json"_s,
         functionCallOutput(u"call_\"1\""_s, u"Lightroom Classic: \"Café\"\n\\ 😀"_s)},
        {u"create-response.json"_s, createResponse()},
    };
    for (const auto &[name, event] : cases) {
        QFile golden(QStringLiteral(KELVALR_GOLDEN_REALTIME_EVENTS "/") + name);
        ASSERT_TRUE(golden.open(QFile::ReadOnly)) << name.toStdString();
        EXPECT_EQ(event.toStdString(), golden.readAll().toStdString()) << name.toStdString();
    }
}
