#pragma once

#include <QByteArrayList>
#include <QFile>

#include <cmath>

namespace KelvaLR {

/// A sum over the kernel's accounts of this process's memory (proc_pid_smaps(5)) in megabytes; not a number
/// where the system cannot say.
inline double megabytesOf(const QByteArrayList &accounts)
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nan("");
    }
    double kibibytes = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (accounts.contains(line.left(line.indexOf(':')))) {
            kibibytes += line.simplified().split(' ').value(1).toDouble();
        }
    }
    return kibibytes * 1024 / 1e6;
}

/// The memory of this process, shared pages by their share.
inline double residentMegabytes()
{
    return megabytesOf({"Pss"});
}

/// What this process has allocated. Unlike its share of the libraries' pages, it does not change with the
/// programs that run beside it.
inline double allocatedMegabytes()
{
    return megabytesOf({"Anonymous", "Swap"});
}

} // namespace KelvaLR
