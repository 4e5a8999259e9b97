#pragma once

#include "Services/Lightroom/Bridge/LightroomPluginCommand.h"

#include <QString>

#include <variant>

namespace KelvaLR {

/// Which operation a keyboard shortcut of Lightroom stands in for.
enum class KeyFallbackKind { flag, rating, navigation };

/// Stands in for an operation with a keyboard shortcut of Lightroom.
struct KeyFallback
{
    KeyFallbackKind kind = KeyFallbackKind::flag;
    QString key;     ///< a key description
    QString subject; ///< what the key stands for, for the sentence about a key that cannot be read
};

/// Stands in for slider changes by moving the sliders in Lightroom's window.
struct SliderFallback
{
    QString adjustments; ///< "Slider:Value:Relative" items separated by ";"
};

/// What an operation does without the plug-in: explain in a finished sentence, or drive Lightroom's window.
using WithoutPlugin = std::variant<QString, KeyFallback, SliderFallback>;

/// Whether Lightroom comes to the front once an operation has succeeded.
enum class AfterSuccess { activateLightroom, stay };

/// One Lightroom operation, described for the sequence that all of them go through.
struct LightroomOperation
{
    LightroomPluginCommand command;
    WithoutPlugin withoutPlugin;
    AfterSuccess afterSuccess = AfterSuccess::activateLightroom;
};

} // namespace KelvaLR
