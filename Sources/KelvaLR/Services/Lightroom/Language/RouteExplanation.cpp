#include "Services/Lightroom/Language/RouteExplanation.h"

#include "Support/OrderedJsonObject.h"

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

OrderedJsonObject commandCase(QLatin1StringView name)
{
    return OrderedJsonObject().add("case"_L1, QJsonValue(name));
}

OrderedJsonObject sliderCase(QLatin1StringView name, const ParsedLightroomSliderCommand &slider)
{
    return commandCase(name)
        .add("sliderName"_L1, slider.sliderName)
        .add("value"_L1, slider.value)
        .add("relative"_L1, slider.relative);
}

OrderedJsonObject explained(const KeyboardKey &key)
{
    return OrderedJsonObject()
        .add("displayName"_L1, key.displayName)
        .add("keyCode"_L1, key.keyCode ? QJsonValue(*key.keyCode) : QJsonValue())
        .add("modifiers"_L1, static_cast<qint64>(key.modifiers.toInt()));
}

struct CommandExplanation
{
    OrderedJsonObject operator()(const LightroomCommand::OpenLightroom &command) const
    {
        return commandCase("openLightroom"_L1).add("name"_L1, command.name);
    }

    OrderedJsonObject operator()(const LightroomCommand::ClickElement &command) const
    {
        return commandCase("clickElement"_L1).add("name"_L1, command.name);
    }

    OrderedJsonObject operator()(const LightroomCommand::TypeText &command) const
    {
        return commandCase("typeText"_L1).add("text"_L1, command.text);
    }

    OrderedJsonObject operator()(const LightroomCommand::TypeTextIntoField &command) const
    {
        return commandCase("typeTextIntoField"_L1)
            .add("text"_L1, command.text)
            .add("field"_L1, command.field);
    }

    OrderedJsonObject operator()(const LightroomCommand::PressKey &command) const
    {
        return commandCase("pressKey"_L1).add("key"_L1, explained(command.key));
    }

    OrderedJsonObject operator()(const LightroomCommand::LightroomAdjustSlider &command) const
    {
        return sliderCase("lightroomAdjustSlider"_L1, command.slider);
    }

    OrderedJsonObject operator()(const LightroomCommand::LightroomApplyPreset &command) const
    {
        return commandCase("lightroomApplyPreset"_L1).add("name"_L1, command.name);
    }

    OrderedJsonObject operator()(const LightroomCommand::LightroomImportFolder &command) const
    {
        return commandCase("lightroomImportFolder"_L1).add("path"_L1, command.path);
    }

    OrderedJsonObject operator()(const LightroomCommand::LightroomCullPhoto &command) const
    {
        return commandCase("lightroomCullPhoto"_L1).add("type"_L1, command.type);
    }

    OrderedJsonObject operator()(const LightroomCommand::LightroomSetRating &command) const
    {
        return commandCase("lightroomSetRating"_L1).add("value"_L1, command.value);
    }

    OrderedJsonObject operator()(const LightroomCommand::LightroomNavigate &command) const
    {
        return commandCase("lightroomNavigate"_L1).add("direction"_L1, command.direction);
    }

    OrderedJsonObject operator()(LightroomCommand::InspectUI) const { return commandCase("inspectUI"_L1); }

    OrderedJsonObject operator()(LightroomCommand::LightroomGetStatus) const
    {
        return commandCase("lightroomGetStatus"_L1);
    }
};

struct BatchExplanation
{
    OrderedJsonObject operator()(const ImportedPhotoBatch::ApplyPreset &batch) const
    {
        return commandCase("applyPreset"_L1).add("name"_L1, batch.name);
    }

    OrderedJsonObject operator()(const ImportedPhotoBatch::Cull &batch) const
    {
        return commandCase("cull"_L1).add("type"_L1, batch.type);
    }

    OrderedJsonObject operator()(const ImportedPhotoBatch::Rate &batch) const
    {
        return commandCase("rate"_L1).add("rating"_L1, batch.rating);
    }

    OrderedJsonObject operator()(const ImportedPhotoBatch::AdjustSlider &batch) const
    {
        return sliderCase("adjustSlider"_L1, batch.slider);
    }

    OrderedJsonObject operator()(const ImportedPhotoBatch::AdjustSliders &batch) const
    {
        return commandCase("adjustSliders"_L1).add("adjustments"_L1, batch.adjustments);
    }
};

/// Adds the route's name and payload to the object that it is given.
struct RouteWriter
{
    OrderedJsonObject &object;

    OrderedJsonObject &name(QLatin1StringView route) const
    {
        return object.add("route"_L1, QJsonValue(route));
    }

    void operator()(Route::Ignored) const { name("ignored"_L1); }

    void operator()(Route::ConnectionTest) const { name("connection_test"_L1); }

    void operator()(const Route::FolderImport &route) const
    {
        name("import_folder"_L1).add("path"_L1, route.path);
    }

    void operator()(const Route::Batch &route) const
    {
        name("batch"_L1).add("batch"_L1, std::visit(BatchExplanation{}, route.intent));
    }

    void operator()(const Route::Command &route) const
    {
        name("command"_L1).add("command"_L1, std::visit(CommandExplanation{}, route.command));
    }

    void operator()(Route::Chat) const { name("chat"_L1); }
};

} // namespace

QByteArray explainedRoute(const QString &line, const PromptRoute &route)
{
    OrderedJsonObject object;
    object.add("text"_L1, line);
    std::visit(RouteWriter{object}, route);
    return object.toJson();
}

} // namespace KelvaLR
