#include "Services/Lightroom/LightroomApplicationResolver.h"

#include "Platform/RunningApplications.h"

#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// Adobe's bundle identifiers of Lightroom Classic and Lightroom, in the order in which they are preferred.
constexpr std::array knownIdentifiers{
    QLatin1StringView("com.adobe.lightroomclassiccc7"),
    QLatin1StringView("com.adobe.lightroomCC"),
};

ResolvedLightroomApplication resolved(const InstalledApplication &application)
{
    return {.displayName = application.displayName, .url = application.url};
}

bool saysClassic(const QString &lowerName)
{
    return lowerName.contains("classic"_L1);
}

} // namespace

LightroomApplicationResolver::LightroomApplicationResolver(const RunningApplications &applications)
    : m_applications(applications)
{
}

std::optional<ResolvedLightroomApplication> LightroomApplicationResolver::resolve(const QString &name) const
{
    const QString request = name.toLower();
    const bool isGeneric = request == "lightroom"_L1 || request == "adobe lightroom"_L1;
    for (const QLatin1StringView identifier : knownIdentifiers) {
        const auto application = m_applications.applicationWithIdentifier(identifier);
        if (application &&
            (isGeneric || saysClassic(request) == saysClassic(application->displayName.toLower()))) {
            return resolved(*application);
        }
    }
    for (const ResolvedLightroomApplication &application : installedLightroomApplications()) {
        const QString lowerName = application.displayName.toLower();
        if (lowerName.contains("lightroom"_L1) && (!saysClassic(request) || saysClassic(lowerName))) {
            return application;
        }
    }
    return std::nullopt;
}

QList<ResolvedLightroomApplication> LightroomApplicationResolver::installedLightroomApplications() const
{
    QList<ResolvedLightroomApplication> found;
    for (const InstalledApplication &application : m_applications.installedApplications()) {
        if (application.fileName.toLower().contains("lightroom"_L1)) {
            found.append(resolved(application));
        }
    }
    return found;
}

} // namespace KelvaLR
