#pragma once

#include "Platform/FrontmostApplication.h"

namespace KelvaLR {

/// Answers the frontmost question with what it was told, without asking any desktop.
class AssumedFrontmostApplication final : public FrontmostApplication
{
public:
    explicit AssumedFrontmostApplication(std::optional<RunningApplication> application);

    std::optional<RunningApplication> frontmostApplication() const override;

private:
    std::optional<RunningApplication> m_application;
};

} // namespace KelvaLR
