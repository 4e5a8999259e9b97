#include "Services/Assistant/Realtime/RealtimeClientEvents.h"

#include "Services/Assistant/AssistantTexts.h"

#include <QFile>

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace RealtimeClientEvents;

QByteArray golden(const QString &name)
{
    QFile file(QStringLiteral(KELVALR_GOLDEN_REALTIME_EVENTS "/") + name);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << name.toStdString();
    return file.readAll();
}

TEST(RealtimeClientEvents, areWhatTheServiceIsSent)
{
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
        EXPECT_EQ(event.toStdString(), golden(name).toStdString()) << name.toStdString();
    }
}

TEST(RealtimeClientEvents, giveTheInstructionsByteForByte)
{
    const QString instructions = realtimeInstructions();
    EXPECT_EQ(instructions.size(), 2674);
    EXPECT_TRUE(
        instructions.startsWith("You are KelvaLR, a Lightroom computer-use operator.\n\nYour only"_L1));
    EXPECT_TRUE(instructions.endsWith("run Python, or control unrelated apps."_L1));
}

} // namespace

} // namespace KelvaLR
