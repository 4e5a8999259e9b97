#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <variant>

namespace StandIn {

/// A property of the camera-raw-settings namespace ("crs"): one text, or an ordered list of them.
using CameraRawValue = std::variant<QString, QStringList>;

/// Properties by their name in that namespace, without the prefix.
using CameraRawSettings = QMap<QString, CameraRawValue>;

} // namespace StandIn
