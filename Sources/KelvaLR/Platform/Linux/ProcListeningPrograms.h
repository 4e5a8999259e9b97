#pragma once

#include "Platform/ListeningPrograms.h"

#include <chrono>

namespace KelvaLR {

/// Reads who listens out of the kernel's lists of sockets and of open files. The files of another user's
/// processes are hidden from us, so their programs stay unnamed.
class ProcListeningPrograms final : public ListeningPrograms
{
public:
    /// @param folder where the kernel's lists are
    /// @param deadline for one answer; the programs found by then are given
    explicit ProcListeningPrograms(QString folder = QStringLiteral("/proc"),
                                   std::chrono::milliseconds deadline = std::chrono::seconds(1));

    QCoro::Task<PortListener> listenerOn(quint16 port) override;

private:
    QString m_folder;
    std::chrono::milliseconds m_deadline;
};

} // namespace KelvaLR
