#include "Services/Assistant/AssistantActionRunner.h"

#include "Services/Lightroom/LightroomService.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Support/DecimalNumber.h"
#include "Support/TextTrimming.h"

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using ResultTask = QCoro::Task<ComputerUseResult>;

/// What the handlers act on; both services outlive every action.
struct Services
{
    LightroomService *lightroom;
    MacComputerUseService *computerUse;
};

ResultTask sentence(QString summary)
{
    co_return ComputerUseResult{summary, std::nullopt};
}

ResultTask sentence(QCoro::Task<QString> summary)
{
    co_return ComputerUseResult{co_await summary, std::nullopt};
}

/// The action's value, else its text read as a number, else 0.
double numberOf(const AssistantAction &action)
{
    if (action.value) {
        return *action.value;
    }
    return decimalNumber(action.text.value_or(QString())).value_or(0);
}

ResultTask refuseToOpen(Services, const AssistantAction &)
{
    return sentence(u"No application name provided."_s);
}

ResultTask inspectUI(Services services, const AssistantAction &)
{
    return services.computerUse->inspectUI();
}

ResultTask refuseToClick(Services, const AssistantAction &)
{
    return sentence(u"No Lightroom element name provided to click."_s);
}

ResultTask typeText(Services services, const AssistantAction &action)
{
    if (!action.text) {
        return sentence(u"No text provided to type."_s);
    }
    return services.computerUse->typeText(*action.text);
}

ResultTask refuseToPressKey(Services, const AssistantAction &)
{
    return sentence(u"Invalid or missing key: "_s);
}

ResultTask adjustSlider(Services services, const AssistantAction &action)
{
    return sentence(services.lightroom->adjustSlider(
        {action.slider.value_or(QString()), numberOf(action), action.relative.value_or(true)}));
}

ResultTask adjustSliders(Services services, const AssistantAction &action)
{
    return sentence(services.lightroom->adjustSliders(action.text.value_or(QString())));
}

ResultTask applyPreset(Services services, const AssistantAction &action)
{
    return sentence(
        services.lightroom->applyPreset(action.presetName.value_or(action.text.value_or(QString()))));
}

ResultTask importFolder(Services services, const AssistantAction &action)
{
    return sentence(
        services.lightroom->importFolder(action.folderPath.value_or(action.text.value_or(QString()))));
}

ResultTask cullPhoto(Services services, const AssistantAction &action)
{
    return sentence(services.lightroom->cullPhoto(action.text.value_or(u"pick"_s)));
}

ResultTask setRating(Services services, const AssistantAction &action)
{
    const std::optional<qint64> rating = truncatedInteger(numberOf(action));
    if (!rating) {
        return sentence(u"That rating is not a number from 0 to 5."_s);
    }
    return sentence(services.lightroom->setRating(*rating));
}

ResultTask navigate(Services services, const AssistantAction &action)
{
    return sentence(services.lightroom->navigate(action.text.value_or(u"next"_s)));
}

ResultTask getStatus(Services services, const AssistantAction &)
{
    return sentence(services.lightroom->getStatus());
}

struct Row
{
    QLatin1StringView type;
    ResultTask (*handle)(Services, const AssistantAction &);
};

constexpr std::array rows{
    Row{"open_app"_L1, refuseToOpen},
    Row{"inspect_ui"_L1, inspectUI},
    Row{"click"_L1, refuseToClick},
    Row{"type"_L1, typeText},
    Row{"press_key"_L1, refuseToPressKey},
    Row{"lr_adjust_slider"_L1, adjustSlider},
    Row{"lr_adjust_sliders"_L1, adjustSliders},
    Row{"lr_apply_preset"_L1, applyPreset},
    Row{"lr_import_folder"_L1, importFolder},
    Row{"lr_cull_photo"_L1, cullPhoto},
    Row{"lr_set_rating"_L1, setRating},
    Row{"lr_navigate"_L1, navigate},
    Row{"lr_get_status"_L1, getStatus},
};

} // namespace

AssistantActionRunner::AssistantActionRunner(LightroomService &lightroom, MacComputerUseService &computerUse)
    : m_lightroom(lightroom)
    , m_computerUse(computerUse)
{
}

ResultTask AssistantActionRunner::run(const AssistantAction &action)
{
    const QString type = trimmedWhitespace(action.type).toLower();
    for (const Row &row : rows) {
        if (type == row.type) {
            return row.handle({&m_lightroom, &m_computerUse}, action);
        }
    }
    return sentence(u"KelvaLR only supports Lightroom and Lightroom Classic actions."_s);
}

} // namespace KelvaLR
