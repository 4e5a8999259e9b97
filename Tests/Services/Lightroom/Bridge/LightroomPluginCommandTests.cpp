#include "Services/Lightroom/Bridge/LightroomPluginCommand.h"
#include "Support/PrintQt.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <limits>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;

TEST(LightroomPluginCommandTest, writesThePresentFieldsAsEscapedJson)
{
    const LightroomPluginCommand command{
        .requestID = u"ID"_s,
        .action = LightroomPluginAction::adjustSliders,
        .value = 0.1,
        .presetName = u"Portra \\ 400"_s,
        .targetPaths = {u"/photos/a \"b\"\n.dng"_s, u"/photos/Übung 📷.cr3"_s}};
    EXPECT_EQ(command.jsonText(),
              uR"({"action":"adjust_sliders","preset_name":"Portra \\ 400","request_id":"ID",)"
              uR"("target_paths":["/photos/a \"b\"\n.dng","/photos/Übung 📷.cr3"],"value":0.1})"_s);
}

TEST(LightroomPluginCommandTest, hasNoTextForWhatJsonCannotHold)
{
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(LightroomPluginCommand{.value = value}.jsonText(), std::nullopt);
    }
    const QString loneSurrogate(QChar(0xD83D));
    EXPECT_EQ(LightroomPluginCommand{.presetName = loneSurrogate}.jsonText(), std::nullopt);
    EXPECT_EQ(LightroomPluginCommand{.targetPaths = {loneSurrogate}}.jsonText(), std::nullopt);
}

TEST(LightroomPluginCommandTest, carriesAFreshUpperCaseIdentifier)
{
    static const QRegularExpression form(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
    const LightroomPluginCommand first;
    EXPECT_TRUE(form.match(first.requestID).hasMatch()) << first.requestID.toStdString();
    EXPECT_NE(first.requestID, LightroomPluginCommand().requestID);
}

} // namespace
} // namespace KelvaLR
