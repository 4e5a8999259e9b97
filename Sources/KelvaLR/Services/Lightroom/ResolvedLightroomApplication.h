#pragma once

#include <QString>
#include <QUrl>

namespace KelvaLR {

/// An installed Lightroom application that answers a request to open one.
struct ResolvedLightroomApplication
{
    QString displayName; ///< the name shown to the user
    QUrl url;            ///< what is opened: its bundle or desktop entry

    bool operator==(const ResolvedLightroomApplication &) const = default;
};

} // namespace KelvaLR
