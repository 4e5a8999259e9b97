#include "Platform/Linux/ProcessList.h"

#include <QFile>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

/// A file of the kernel on this process, see proc(5).
QByteArray contents(qint64 processId, QLatin1StringView name)
{
    QFile file("/proc/"_L1 + QString::number(processId) + u'/' + name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 parentOf(qint64 processId)
{
    const QByteArray state = contents(processId, "stat"_L1);
    // The program's name, in parentheses, may hold blanks and parentheses itself. The state and the parent
    // follow it.
    return state.mid(state.lastIndexOf(')') + 1).simplified().split(' ').value(1).toLongLong();
}

} // namespace

QString programName(qint64 processId)
{
    if (processId <= 0) {
        return {};
    }
    const QByteArray name = contents(processId, "comm"_L1).trimmed();
    // The kernel keeps the first 15 bytes; the command line begins with the whole name.
    constexpr qsizetype longestKept = 15;
    const QByteArray path =
        name.size() < longestKept ? QByteArray() : contents(processId, "cmdline"_L1).split('\0').constFirst();
    const QByteArray whole = path.sliced(path.lastIndexOf('/') + 1);
    return QString::fromUtf8(whole.startsWith(name) ? whole : name).simplified();
}

bool descendsFrom(qint64 processId, qint64 ancestor)
{
    constexpr int deepest = 64; // ends the walk should ids be reused meanwhile
    for (int i = 0; i < deepest && processId > 1; ++i) {
        processId = parentOf(processId);
        if (processId == ancestor) {
            return true;
        }
    }
    return false;
}

} // namespace KelvaLR
