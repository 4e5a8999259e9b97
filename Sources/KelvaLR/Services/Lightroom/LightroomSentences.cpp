#include "Services/Lightroom/LightroomSentences.h"

#include "Services/Automation/UIAutomationResult.h"

#include <QLatin1StringView>

#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

QString connectedToPlugin()
{
    return u"Connected to Lightroom Classic plugin."_s;
}

namespace {

constexpr QLatin1StringView notConnected("Lightroom Classic plugin is not connected");
constexpr QLatin1StringView addThePlugin(" In Lightroom Classic, open File > Plug-in Manager, add the "
                                         "installed KelvaLR.lrplugin folder from Settings, "
                                         "restart Lightroom Classic, ");
constexpr QLatin1StringView withAPhoto("select a photo, ");
constexpr QLatin1StringView tryAgain("then try again.");

struct KeyFallbackRow
{
    KeyFallbackKind kind;
    QLatin1StringView unreadableKey; ///< goes before the subject
    QLatin1StringView success;       ///< goes before the message
    QLatin1StringView failure;       ///< goes before the message
    QLatin1StringView denied;
};

constexpr std::array<KeyFallbackRow, 3> keyFallbackRows{{
    {KeyFallbackKind::flag, QLatin1StringView("Failed to parse key mapping for "),
     QLatin1StringView("Flag simulated: "), QLatin1StringView("Flag simulation failed: "),
     QLatin1StringView("Accessibility Permissions required for flag hotkey simulation.")},
    {KeyFallbackKind::rating, QLatin1StringView("Failed to parse key mapping for rating "),
     QLatin1StringView("Rating simulated: "), QLatin1StringView("Rating simulation failed: "),
     QLatin1StringView("Accessibility Permissions required for rating simulation.")},
    {KeyFallbackKind::navigation, QLatin1StringView("Failed to parse key mapping for "),
     QLatin1StringView("Navigation simulated: "), QLatin1StringView("Navigation simulation failed: "),
     QLatin1StringView("Accessibility Permissions required for navigation simulation.")},
}};

const KeyFallbackRow &row(KeyFallbackKind kind)
{
    for (const KeyFallbackRow &candidate : keyFallbackRows) {
        if (candidate.kind == kind) {
            return candidate;
        }
    }
    Q_UNREACHABLE();
}

} // namespace

QString selectImportedPhotosFirst()
{
    return u"Select one or more imported photos in the artifact area first."_s;
}

QString NotConnected::sliderNotChanged(const QString &sliderName)
{
    return notConnected + ", so "_L1 + sliderName + " was not changed."_L1 + addThePlugin + withAPhoto +
           tryAgain;
}

QString NotConnected::presetNotApplied(const QString &presetName)
{
    return notConnected + ", so preset "_L1 + presetName + " was not applied."_L1 + addThePlugin +
           withAPhoto + tryAgain;
}

QString NotConnected::photosNotImported()
{
    return notConnected + ", so photos were not imported."_L1 + addThePlugin + tryAgain;
}

QString NotConnected::howToConnect()
{
    return notConnected + ". Open KelvaLR Settings, choose Reveal Installed Plugin, then add that "
                          "KelvaLR.lrplugin folder in "
                          "Lightroom Classic > File > Plug-in Manager."_L1;
}

QString NotConnected::noAdjustments()
{
    return notConnected + " and no adjustments could be parsed."_L1;
}

QString KeyFallbackSentence::unreadableKey(const KeyFallback &fallback)
{
    return row(fallback.kind).unreadableKey + fallback.subject + u'.';
}

QString KeyFallbackSentence::outcome(KeyFallbackKind kind, const UIAutomationResult &result)
{
    const KeyFallbackRow &words = row(kind);
    switch (result.outcome) {
    case UIAutomationResult::Outcome::success:
        return words.success + result.message;
    case UIAutomationResult::Outcome::failure:
        return words.failure + result.message;
    case UIAutomationResult::Outcome::accessibilityDenied:
        return words.denied;
    }
    Q_UNREACHABLE();
}

} // namespace KelvaLR
