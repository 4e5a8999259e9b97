#include "Platform/Linux/ProcListeningPrograms.h"
#include "Platform/Linux/ProcessList.h"
#include "Platform/Linux/SocketTable.h"
#include "Support/WaitForTask.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using enum PortListener::Presence;

namespace {

constexpr QByteArrayView
    header("  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   "
           "uid  timeout inode\n");

/// A table with one socket on port 0xD431.
QByteArray tableOf(QByteArrayView address, QByteArrayView state)
{
    return header + "   0: " + address + ":D431 00000000:0000 " + state +
           " 00000000:00000000 00:00000000 00000000  1000        0 4711 1 0 100 0 0 10 0\n";
}

std::optional<QSet<quint64>> socketsIn(QByteArray table)
{
    QBuffer buffer(&table);
    buffer.open(QIODevice::ReadOnly);
    return listeningSockets(buffer, 0xD431);
}

TEST(ListeningProgramsTest, namesEachProcessThatHoldsTheSocketWhileItListens)
{
    QProcess listening;
    listening.start(u"python3"_s, {u"-c"_s, u"import os, socket, sys\n"
                                            "s = socket.create_server(('', 0), family=socket.AF_INET6)\n"
                                            "os.fork() or sys.stdin.read() or os._exit(0)\n"
                                            "print(s.getsockname()[1], flush=True); sys.stdin.read()"_s});
    ASSERT_TRUE(waitUntil([&] { return listening.canReadLine(); }));
    const quint16 port = listening.readLine().trimmed().toUShort();
    ProcListeningPrograms programs;
    const PortListener listener = waitForTask(programs.listenerOn(port));
    EXPECT_EQ(listener.presence, present);
    EXPECT_EQ(listener.programs.size(), 2);
    EXPECT_TRUE(listener.programs.contains(
        ListeningProgram{.name = programName(listening.processId()), .processId = listening.processId()}));
    listening.closeWriteChannel();
    EXPECT_TRUE(listening.waitForFinished());
    EXPECT_TRUE(waitUntil([&] { return waitForTask(programs.listenerOn(port)).presence == none; }));
}

TEST(ListeningProgramsTest, knowsNothingWhereTheKernelListsNothing)
{
    const QTemporaryDir folder;
    ProcListeningPrograms programs(folder.path());
    EXPECT_EQ(waitForTask(programs.listenerOn(1)).presence, unknown);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"net"_s));
    for (const auto &[content, presence] :
         {std::pair{QByteArray("no table"), unknown}, {tableOf("0100007F", "0A"), present}}) {
        QFile table(folder.filePath(u"net/tcp"_s));
        ASSERT_TRUE(table.open(QFile::WriteOnly));
        table.write(content);
        table.close();
        EXPECT_EQ(waitForTask(programs.listenerOn(0xD431)),
                  (PortListener{.presence = presence, .programs = {}}));
    }
}

TEST(SocketTableTest, findsWhatTakesConnectionsToThisMachine)
{
    const std::tuple<const char *, const char *, bool> rows[] = {
        {"0100007F", "0A", true},
        {"00000000", "0A", true},
        {"00000000000000000000000000000000", "0A", true},
        {"0000000000000000FFFF00000100007F", "0A", true},
        {"0100007F", "01", false},
        {"0201A8C0", "0A", false},
        {"00000000000000000000000001000000", "0A", false},
    };

    for (const auto &[address, state, isFound] : rows) {
        EXPECT_EQ(socketsIn(tableOf(address, state)), isFound ? QSet<quint64>{4711} : QSet<quint64>())
            << address << ' ' << state;
    }
}

TEST(SocketTableTest, leavesOutWhatCannotBeRead)
{
    EXPECT_EQ(socketsIn({}), std::nullopt);
    EXPECT_EQ(socketsIn(QByteArray("\n\0\xFF", 3)), std::nullopt);
    const QByteArray whole = tableOf("0100007F", "0A");
    for (qsizetype length = header.size(); length < whole.size(); ++length) {
        EXPECT_TRUE(socketsIn(whole.first(length)).has_value()) << length;
    }
    QRandomGenerator random(20);
    for (int round = 0; round < 2000; ++round) {
        QByteArray noise = whole;
        for (int i = 0; i < 8; ++i) {
            noise[random.bounded(header.size(), noise.size())] = char(random.bounded(256));
        }
        EXPECT_TRUE(socketsIn(noise).has_value());
    }
}

TEST(ProcessListTest, namesAProgramWhole)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a-program-with-a-long-name"_s);
    ASSERT_TRUE(QFile::copy(QStandardPaths::findExecutable(u"sleep"_s), path));
    QProcess program;
    program.start(path, {u"60"_s});
    EXPECT_TRUE(
        waitUntil([&] { return programName(program.processId()) == "a-program-with-a-long-name"_L1; }));
    program.kill();
    program.waitForFinished();
    EXPECT_EQ(programName(0), QString());
}

} // namespace
