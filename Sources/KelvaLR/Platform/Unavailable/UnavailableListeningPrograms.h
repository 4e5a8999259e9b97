#pragma once

#include "Platform/ListeningPrograms.h"

namespace KelvaLR {

/// For a system whose sockets this build cannot list.
class UnavailableListeningPrograms final : public ListeningPrograms
{
public:
    QCoro::Task<PortListener> listenerOn(quint16) override { co_return PortListener(); }
};

} // namespace KelvaLR
