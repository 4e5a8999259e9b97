#include "Platform/Linux/SocketTable.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <array>

#include <arpa/inet.h>

namespace KelvaLR {

namespace {

// The places of the columns, and the state of a socket that listens.
constexpr qsizetype localAddress = 1;
constexpr qsizetype state = 3;
constexpr qsizetype inode = 9;
constexpr QByteArrayView listening("0A");

constexpr qint64 longestLine = 512; ///< the kernel's are shorter than 200

/// As the kernel writes 32 bits of an address: in the order of this machine.
QByteArray word(quint32 bits)
{
    return QByteArray::number(htonl(bits), 16).rightJustified(8, '0').toUpper();
}

/// Those at which a socket hears what is sent to 127.0.0.1: itself and "any", both also as IPv6 has them.
bool hearsLoopback(QByteArrayView address)
{
    static const std::array<QByteArray, 4> addresses{
        word(INADDR_LOOPBACK),
        word(INADDR_ANY),
        word(0) + word(0) + word(0xFFFF) + word(INADDR_LOOPBACK),
        word(0) + word(0) + word(0) + word(0),
    };
    return std::ranges::find(addresses, address) != addresses.end();
}

bool isListeningOn(const QList<QByteArray> &columns, quint16 port)
{
    const QByteArray &address = columns.at(localAddress);
    const qsizetype colon = address.indexOf(':');
    bool isNumber = false;
    return colon > 0 && columns.at(state) == listening &&
           address.sliced(colon + 1).toUShort(&isNumber, 16) == port && isNumber &&
           hearsLoopback(QByteArrayView(address).first(colon));
}

} // namespace

std::optional<QSet<quint64>> listeningSockets(QIODevice &table, quint16 port)
{
    if (!table.readLine(longestLine).contains("local_address")) {
        return std::nullopt;
    }
    QSet<quint64> inodes;
    for (QByteArray line = table.readLine(longestLine); !line.isEmpty(); line = table.readLine(longestLine)) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        if (columns.size() <= inode || !isListeningOn(columns, port)) {
            continue;
        }
        if (const quint64 number = columns.at(inode).toULongLong()) {
            inodes.insert(number);
        }
    }
    return inodes;
}

} // namespace KelvaLR
