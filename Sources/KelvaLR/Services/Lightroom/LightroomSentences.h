#pragma once

#include "Services/Lightroom/LightroomOperation.h"

#include <QString>

namespace KelvaLR {

struct UIAutomationResult;

/// What the user is told when the plug-in answers a connection test.
[[nodiscard]] QString connectedToPlugin();

/// What the user is told when a request is about imported photos, and none is selected.
[[nodiscard]] QString selectImportedPhotosFirst();

/// What the user is told when the plug-in cannot be reached.
namespace NotConnected {

[[nodiscard]] QString sliderNotChanged(const QString &sliderName);
[[nodiscard]] QString presetNotApplied(const QString &presetName);
[[nodiscard]] QString photosNotImported();
[[nodiscard]] QString howToConnect();
[[nodiscard]] QString noAdjustments();

} // namespace NotConnected

/// What the user is told about a shortcut that stood in for the plug-in.
namespace KeyFallbackSentence {

[[nodiscard]] QString unreadableKey(const KeyFallback &fallback);
[[nodiscard]] QString outcome(KeyFallbackKind kind, const UIAutomationResult &result);

} // namespace KeyFallbackSentence

} // namespace KelvaLR
