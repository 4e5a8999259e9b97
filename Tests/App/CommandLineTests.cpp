#include "App/AssumedFrontmostApplication.h"
#include "App/CommandLine.h"
#include "App/ExplainMode.h"
#include "App/StandardInputLines.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <array>

#include <unistd.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

TEST(CommandLine, saysWhatTheProgramWasStartedFor)
{
    const auto parse = [](const QString &options) {
        return CommandLine::parse(QStringList(u"kelvalr"_s) + options.split(u' ', Qt::SkipEmptyParts));
    };
    const std::pair<QString, CommandLine> cases[] = {
        {u""_s, {}},
        {u"--prompt a --json --prompt=-b"_s,
         {.mode = LaunchMode::prompts, .format = OutputFormat::json, .prompts = {u"a"_s, u"-b"_s}}},
        {u"--explain --assume-lightroom-frontmost"_s,
         {.mode = LaunchMode::explain, .isLightroomAssumedFrontmost = true}},
        {u"--install-plugin"_s, {.mode = LaunchMode::installPlugin}},
        {u"--allow-computer-control no"_s, {.mode = LaunchMode::consent, .allowsComputerControl = false}},
        {u"--terminal --allow-computer-control=yes"_s,
         {.mode = LaunchMode::terminal, .allowsComputerControl = true}},
        {u"--create-note \ta\t"_s, {.intent = CreateKelvaLRNoteIntent{u"\ta\t"_s}}},
        {u"--open-section=chat"_s, {.intent = OpenKelvaLRSectionIntent{}}},
        {u"--gapplication-service"_s, {.mode = LaunchMode::service}},
    };
    for (const auto &[options, line] : cases) {
        EXPECT_EQ(parse(options), line) << options.toStdString();
    }
    for (const QString &wrong :
         {u"--nonsense"_s, u"--open-section=settings"_s, u"--open-section=chat --create-note=a"_s,
          u"--create-note=a --prompt=a"_s, u"--create-note=a --allow-computer-control=yes"_s,
          u"--explain --allow-computer-control=yes"_s, u"--prompt"_s, u"stray"_s,
          u"--allow-computer-control=maybe"_s, u"--terminal --prompt=a"_s}) {
        const auto result = parse(wrong);
        ASSERT_FALSE(result.has_value()) << wrong.toStdString();
        EXPECT_EQ(result.error().count(u'\n'), 0);
    }
}

TEST(ExplainMode, answersEachLineAndSplitsAtLineFeedsOnly)
{
    QByteArray text("set exposure to 1\n\n\ufeff \r\v\u2028hello\r\n\xff\xfe\nlast");
    text.insert(text.indexOf("last"), '\0');
    QBuffer input(&text);
    QBuffer output;
    input.open(QIODevice::ReadOnly);
    output.open(QIODevice::WriteOnly);

    EXPECT_EQ(explainRequests(input, output, AssumedFrontmostApplication(std::nullopt)), 0);

    const QList<QByteArray> lines = output.data().split('\n');
    ASSERT_EQ(lines.size(), 6); // five answers, each ended by a line feed
    EXPECT_EQ(lines.at(0), R"({"text":"set exposure to 1","route":"command","command":{"case":)"
                           R"("lightroomAdjustSlider","sliderName":"exposure","value":1,"relative":false}})");
    const auto object = [&](qsizetype at) { return QJsonDocument::fromJson(lines.at(at)).object(); };
    EXPECT_EQ(object(1).value("route"_L1).toString(), u"ignored"_s);
    EXPECT_EQ(object(2).value("text"_L1).toString(), u"\ufeff \r\v\u2028hello\r"_s);
    EXPECT_EQ(object(3).value("text"_L1).toString(), u"\ufffd\ufffd"_s);
    EXPECT_EQ(object(4).value("text"_L1).toString(), u"\0last"_s);
}

TEST(StandardInputLines, givesWholeLinesAsTheyComeAndTheRestAtTheEnd)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    StandardInputLines lines(ends[0]);
    const auto send = [&](QByteArrayView bytes) {
        ASSERT_EQ(write(ends[1], bytes.data(), static_cast<size_t>(bytes.size())), bytes.size());
    };

    send("first\nsec");
    EXPECT_EQ(waitForTask(lines.next()), u"first"_s);
    QCoro::Task<std::optional<QString>> second = lines.next();
    EXPECT_FALSE(second.isReady());
    send("ond\nrest");
    close(ends[1]);
    EXPECT_EQ(waitForTask(std::move(second)), u"second"_s);
    EXPECT_EQ(waitForTask(lines.next()), u"rest"_s);
    EXPECT_EQ(waitForTask(lines.next()), std::nullopt);
    close(ends[0]);
}
