#include "App/AssumedFrontmostApplication.h"

namespace KelvaLR {

AssumedFrontmostApplication::AssumedFrontmostApplication(std::optional<RunningApplication> application)
    : m_application(std::move(application))
{
}

std::optional<RunningApplication> AssumedFrontmostApplication::frontmostApplication() const
{
    return m_application;
}

} // namespace KelvaLR
