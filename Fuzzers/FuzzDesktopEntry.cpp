// Any text gives an entry or none, and any entry a command that names a program or none. Nothing but a field
// code brings a text into the command that does not stand in it.

#include "FuzzedText.h"

#include "Platform/Linux/DesktopEntry.h"

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Fuzzing::require;

void readCommand(const DesktopEntry &entry)
{
    const auto command = commandLine(entry);
    require(!command || !command->value(0).isEmpty());
    if (command && !entry.exec.contains(u'%')) {
        require(command->join(QString()).size() <= entry.exec.size());
    }
    // Quoted, every text is one argument again.
    QString quoted = entry.exec;
    quoted.replace(u'%', "%%"_L1).replace(u'\\', "\\\\"_L1).replace(u'"', "\\\""_L1);
    DesktopEntry again;
    again.exec = "app \""_L1 + quoted + u'"';
    require(commandLine(again) == QStringList{u"app"_s, entry.exec});
}

void readEntry(QByteArrayView text)
{
    const auto entry = parsedDesktopEntry(text);
    require(!entry || text.contains("[Desktop Entry]"));
    readCommand(entry.value_or(DesktopEntry()));
}

} // namespace

} // namespace KelvaLR

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    KelvaLR::readEntry(QByteArrayView(data, static_cast<qsizetype>(size)));
    for (const QString &text : KelvaLR::Fuzzing::textsOf(data, size)) {
        KelvaLR::DesktopEntry entry;
        entry.exec = text;
        KelvaLR::readCommand(entry);
    }
    return 0;
}
