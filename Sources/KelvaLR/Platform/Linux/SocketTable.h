#pragma once

#include <QIODevice>
#include <QSet>

#include <optional>

namespace KelvaLR {

/// The inodes of the sockets that take connections to 127.0.0.1 on a TCP port, by the kernel's table of TCP
/// sockets over IPv4 or IPv6, see proc(5). None when the device holds no such table; lines that cannot be
/// read are left out.
[[nodiscard]] std::optional<QSet<quint64>> listeningSockets(QIODevice &table, quint16 port);

} // namespace KelvaLR
