#pragma once

#include "Services/Automation/KeyboardKey.h"
#include "Services/Lightroom/Language/ParsedLightroomSliderCommand.h"

#include <QString>

#include <variant>

namespace KelvaLR {

/// The commands that the command language yields, one struct for each.
namespace LightroomCommand {

struct OpenLightroom
{
    QString name; ///< of the application, as the user wrote it

    bool operator==(const OpenLightroom &) const = default;
};

struct ClickElement
{
    QString name; ///< visible on the element

    bool operator==(const ClickElement &) const = default;
};

struct TypeText
{
    QString text;

    bool operator==(const TypeText &) const = default;
};

struct TypeTextIntoField
{
    QString text;
    QString field; ///< the field's visible name

    bool operator==(const TypeTextIntoField &) const = default;
};

struct PressKey
{
    KeyboardKey key;

    bool operator==(const PressKey &) const = default;
};

struct LightroomAdjustSlider
{
    ParsedLightroomSliderCommand slider;

    bool operator==(const LightroomAdjustSlider &) const = default;
};

struct LightroomApplyPreset
{
    QString name;

    bool operator==(const LightroomApplyPreset &) const = default;
};

struct LightroomImportFolder
{
    QString path; ///< as the user wrote it; a tilde is not expanded

    bool operator==(const LightroomImportFolder &) const = default;
};

struct LightroomCullPhoto
{
    QString type; ///< "pick", "reject" or "unflag"

    bool operator==(const LightroomCullPhoto &) const = default;
};

struct LightroomSetRating
{
    int value = 0; ///< 0 to 5

    bool operator==(const LightroomSetRating &) const = default;
};

struct LightroomNavigate
{
    QString direction; ///< "next" or "prev"

    bool operator==(const LightroomNavigate &) const = default;
};

struct InspectUI
{
    bool operator==(const InspectUI &) const = default;
};

struct LightroomGetStatus
{
    bool operator==(const LightroomGetStatus &) const = default;
};

} // namespace LightroomCommand

/// The closed set of commands that can be carried out without asking a language model.
using LightroomComputerUseCommand =
    std::variant<LightroomCommand::OpenLightroom, LightroomCommand::ClickElement, LightroomCommand::TypeText,
                 LightroomCommand::TypeTextIntoField, LightroomCommand::PressKey,
                 LightroomCommand::LightroomAdjustSlider, LightroomCommand::LightroomApplyPreset,
                 LightroomCommand::LightroomImportFolder, LightroomCommand::LightroomCullPhoto,
                 LightroomCommand::LightroomSetRating, LightroomCommand::LightroomNavigate,
                 LightroomCommand::InspectUI, LightroomCommand::LightroomGetStatus>;

} // namespace KelvaLR
