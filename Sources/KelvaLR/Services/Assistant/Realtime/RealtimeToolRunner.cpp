#include "Services/Assistant/Realtime/RealtimeToolRunner.h"

#include "Services/Automation/KeyboardKey.h"
#include "Services/Lightroom/LightroomSentences.h"
#include "Services/Lightroom/LightroomService.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Support/DecimalNumber.h"

#include <algorithm>
#include <initializer_list>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using ResultTask = QCoro::Task<ComputerUseResult>;

/// What a handler acts on and with.
struct Job
{
    LightroomService *lightroom;
    MacComputerUseService *computerUse;
    RealtimeToolCall call;
    QStringList targetPaths; ///< empty: the photo selected in Lightroom
};

ResultTask sentence(QString summary)
{
    co_return ComputerUseResult{summary, std::nullopt};
}

ResultTask sentence(QCoro::Task<QString> summary)
{
    co_return ComputerUseResult{co_await summary, std::nullopt};
}

bool hasText(const std::optional<QString> &argument)
{
    return argument && !argument->isEmpty();
}

QString firstPresent(std::initializer_list<std::optional<QString>> arguments, const QString &otherwise = {})
{
    const auto *const present =
        std::ranges::find_if(arguments, [](const auto &argument) { return argument.has_value(); });
    return present == arguments.end() ? otherwise : **present;
}

/// The call's value, else its text read as a number, else 0.
double numberOf(const RealtimeToolCall &call)
{
    return call.value ? *call.value : decimalNumber(call.text.value_or(QString())).value_or(0);
}

ResultTask openApp(const Job &job)
{
    return hasText(job.call.appName) ? job.computerUse->openLightroomApp(*job.call.appName)
                                     : sentence(u"No application name provided."_s);
}

ResultTask inspectUI(const Job &job)
{
    return job.computerUse->inspectUI();
}

ResultTask click(const Job &job)
{
    return hasText(job.call.targetName) ? job.computerUse->clickElement(*job.call.targetName)
                                        : sentence(u"No Lightroom element name provided to click."_s);
}

ResultTask typeText(const Job &job)
{
    if (!hasText(job.call.text)) {
        return sentence(u"No text provided to type."_s);
    }
    return hasText(job.call.targetName)
               ? job.computerUse->typeTextIntoField(*job.call.text, *job.call.targetName)
               : job.computerUse->typeText(*job.call.text);
}

ResultTask pressKey(const Job &job)
{
    const QString description = job.call.key.value_or(QString());
    const std::optional<KeyboardKey> key = KeyboardKey::parse(description);
    return key ? job.computerUse->pressKey(*key) : sentence("Invalid or missing key: "_L1 + description);
}

ResultTask adjustSlider(const Job &job)
{
    return sentence(job.lightroom->adjustSlider({firstPresent({job.call.slider, job.call.targetName}),
                                                 numberOf(job.call), job.call.relative.value_or(true)},
                                                job.targetPaths));
}

ResultTask adjustSliders(const Job &job)
{
    return sentence(job.lightroom->adjustSliders(firstPresent({job.call.text}), job.targetPaths));
}

ResultTask applyPreset(const Job &job)
{
    return sentence(job.lightroom->applyPreset(
        firstPresent({job.call.presetName, job.call.text, job.call.targetName}), job.targetPaths));
}

ResultTask importFolder(const Job &job)
{
    return sentence(
        job.lightroom->importFolder(firstPresent({job.call.folderPath, job.call.text, job.call.targetName})));
}

ResultTask cullPhoto(const Job &job)
{
    return sentence(job.lightroom->cullPhoto(firstPresent({job.call.text, job.call.targetName}, u"pick"_s),
                                             job.targetPaths));
}

ResultTask setRating(const Job &job)
{
    const std::optional<qint64> rating = truncatedInteger(numberOf(job.call));
    return rating ? sentence(job.lightroom->setRating(*rating, job.targetPaths))
                  : sentence(u"That rating is not a number from 0 to 5."_s);
}

ResultTask navigate(const Job &job)
{
    return sentence(job.lightroom->navigate(firstPresent({job.call.text, job.call.targetName}, u"next"_s)));
}

ResultTask getStatus(const Job &job)
{
    return sentence(job.lightroom->getStatus());
}

/// Whether an action acts on the photos that the request means, so that there have to be some.
enum class Targets { ignored, needed };

struct Row
{
    RealtimeToolAction action;
    Targets targets;
    ResultTask (*handle)(const Job &);
};

constexpr std::array rows{
    Row{RealtimeToolAction::openApp, Targets::ignored, openApp},
    Row{RealtimeToolAction::inspectUI, Targets::ignored, inspectUI},
    Row{RealtimeToolAction::click, Targets::ignored, click},
    Row{RealtimeToolAction::type, Targets::ignored, typeText},
    Row{RealtimeToolAction::pressKey, Targets::ignored, pressKey},
    Row{RealtimeToolAction::adjustSlider, Targets::needed, adjustSlider},
    Row{RealtimeToolAction::adjustSliders, Targets::needed, adjustSliders},
    Row{RealtimeToolAction::applyPreset, Targets::needed, applyPreset},
    Row{RealtimeToolAction::importFolder, Targets::ignored, importFolder},
    Row{RealtimeToolAction::cullPhoto, Targets::needed, cullPhoto},
    Row{RealtimeToolAction::setRating, Targets::needed, setRating},
    Row{RealtimeToolAction::navigate, Targets::ignored, navigate},
    Row{RealtimeToolAction::getStatus, Targets::ignored, getStatus},
};
static_assert(std::ranges::equal(rows, rawValueTable<RealtimeToolAction>, {}, &Row::action,
                                 &RawValueRow<RealtimeToolAction>::value));

} // namespace

RealtimeToolRunner::RealtimeToolRunner(LightroomService &lightroom, MacComputerUseService &computerUse)
    : m_lightroom(&lightroom)
    , m_computerUse(&computerUse)
{
}

ResultTask RealtimeToolRunner::run(RealtimeToolCall call, std::optional<QStringList> targetPaths) const
{
    const auto row = std::ranges::find(rows, call.knownAction(), &Row::action);
    if (row == rows.end()) {
        return sentence(u"KelvaLR only supports Lightroom and Lightroom Classic actions."_s);
    }
    if (row->targets == Targets::needed && targetPaths && targetPaths->isEmpty()) {
        return sentence(selectImportedPhotosFirst());
    }
    return row->handle(
        {m_lightroom, m_computerUse, std::move(call), std::move(targetPaths).value_or(QStringList())});
}

} // namespace KelvaLR
