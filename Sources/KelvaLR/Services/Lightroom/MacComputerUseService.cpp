#include "Services/Lightroom/MacComputerUseService.h"

#include "Platform/RunningApplications.h"
#include "Services/Automation/UIAutomationService.h"
#include "Services/Lightroom/Language/LightroomCommandParser.h"
#include "Services/Lightroom/Language/LightroomFrontmost.h"
#include "Services/Lightroom/LightroomApplicationResolver.h"
#include "Services/Lightroom/LightroomService.h"
#include "Support/Overloaded.h"
#include "Support/TextTrimming.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

QString refusal(QLatin1StringView deed)
{
    return "Bring Adobe Lightroom or Lightroom Classic to the front before "_L1 + deed + u'.';
}

/// One line of the element list; what an element does not have is left out.
QString listed(const UIElementDescription &element)
{
    QString line = "* ["_L1 + element.role + "] \""_L1 + element.name + u'"';
    if (element.description) {
        line += " ("_L1 + *element.description + u')';
    }
    if (element.value) {
        line += " = \""_L1 + *element.value + u'"';
    }
    return line + u'\n';
}

QString sentence(const QString &text)
{
    return text;
}

QString sentence(const UIAutomationResult &result)
{
    return result.sentence(
        u"Enable KelvaLR in System Settings > Privacy & Security > Accessibility, then try again."_s);
}

QString sentence(const QList<UIElementDescription> &elements)
{
    if (elements.isEmpty()) {
        return u"No Lightroom UI elements found. Ensure Lightroom is focused and fully loaded."_s;
    }
    QString text = u"Interactive Lightroom elements in the active window:\n\n"_s;
    for (const UIElementDescription &element : elements) {
        text += listed(element);
    }
    return text;
}

ComputerUseResult answered(const QString &summary)
{
    return {.summary = summary};
}

/// Words whatever a service's task ends with.
template <typename T>
QCoro::Task<ComputerUseResult> answer(QCoro::Task<T> task)
{
    const T outcome = co_await task;
    co_return answered(sentence(outcome));
}

QCoro::Task<ComputerUseResult> open(RunningApplications &applications,
                                    ResolvedLightroomApplication application)
{
    const std::expected<void, QString> opened = co_await applications.open(application.url);
    const QString &name = application.displayName;
    co_return answered(opened ? QString("Opened "_L1 + name + u'.')
                              : QString("Could not open "_L1 + name + ": "_L1 + opened.error()));
}

} // namespace

MacComputerUseService::MacComputerUseService(LightroomService &lightroom, UIAutomationService &automation,
                                             RunningApplications &applications)
    : m_lightroom(lightroom)
    , m_automation(automation)
    , m_applications(applications)
{
}

QCoro::Task<ComputerUseResult> MacComputerUseService::execute(QString text) const
{
    const QString trimmed = trimmedWhitespace(text);
    if (trimmed.isEmpty()) {
        co_return answered(u"No command provided."_s);
    }
    const auto command = LightroomCommandParser::parse(trimmed, m_applications);
    if (!command) {
        co_return answered(u"KelvaLR only supports Adobe Lightroom and Lightroom Classic commands."_s);
    }
    co_return co_await perform(*command);
}

QCoro::Task<ComputerUseResult>
MacComputerUseService::perform(const LightroomComputerUseCommand &command) const
{
    using namespace LightroomCommand;
    return std::visit(
        Overloaded{
            [this](const OpenLightroom &open) { return openLightroomApp(open.name); },
            [this](const ClickElement &click) { return clickElement(click.name); },
            [this](const TypeText &type) { return typeText(type.text); },
            [this](const TypeTextIntoField &type) { return typeTextIntoField(type.text, type.field); },
            [this](const PressKey &press) { return pressKey(press.key); },
            [this](const LightroomAdjustSlider &adjust) {
                return answer(m_lightroom.adjustSlider(adjust.slider));
            },
            [this](const LightroomApplyPreset &apply) { return answer(m_lightroom.applyPreset(apply.name)); },
            [this](const LightroomImportFolder &folder) {
                return answer(m_lightroom.importFolder(folder.path));
            },
            [this](const LightroomCullPhoto &cull) { return answer(m_lightroom.cullPhoto(cull.type)); },
            [this](const LightroomSetRating &rate) { return answer(m_lightroom.setRating(rate.value)); },
            [this](const LightroomNavigate &go) { return answer(m_lightroom.navigate(go.direction)); },
            [this](const InspectUI &) { return inspectUI(); },
            [this](const LightroomGetStatus &) { return answer(m_lightroom.getStatus()); },
        },
        command);
}

bool MacComputerUseService::isFrontmostAppLightroom() const
{
    return isLightroomFrontmost(m_applications);
}

QCoro::Task<ComputerUseResult> MacComputerUseService::openLightroomApp(QString name) const
{
    const auto application = LightroomApplicationResolver(m_applications).resolve(name);
    if (!application) {
        co_return answered(u"Could not find Adobe Lightroom or Lightroom Classic."_s);
    }
    co_return co_await open(m_applications, *application);
}

QCoro::Task<ComputerUseResult> MacComputerUseService::inspectUI() const
{
    if (!isFrontmostAppLightroom()) {
        co_return answered(refusal("inspecting UI"_L1));
    }
    co_return co_await answer(m_automation.getVisibleElements());
}

QCoro::Task<ComputerUseResult> MacComputerUseService::clickElement(QString name) const
{
    if (!isFrontmostAppLightroom()) {
        co_return answered(refusal("clicking"_L1));
    }
    co_return co_await answer(m_automation.clickVisibleElement(name));
}

QCoro::Task<ComputerUseResult> MacComputerUseService::typeText(QString text) const
{
    if (!isFrontmostAppLightroom()) {
        co_return answered(refusal("typing"_L1));
    }
    co_return co_await answer(m_automation.typeText(text));
}

QCoro::Task<ComputerUseResult> MacComputerUseService::typeTextIntoField(QString text, QString field) const
{
    if (!isFrontmostAppLightroom()) {
        co_return answered(refusal("typing"_L1));
    }
    co_return co_await answer(m_automation.typeTextIntoField(text, field));
}

QCoro::Task<ComputerUseResult> MacComputerUseService::pressKey(KeyboardKey key) const
{
    if (!isFrontmostAppLightroom()) {
        co_return answered(refusal("pressing keys"_L1));
    }
    co_return co_await answer(m_automation.pressKey(key));
}

} // namespace KelvaLR
