#pragma once

#include "Services/Lightroom/Bridge/BridgeEndpoint.h"
#include "Services/Lightroom/Bridge/BridgeTiming.h"

#include <QCoroTask>

namespace KelvaLR {

/// How handing over a command ended: nobody listened, nobody took all of it in time, or it was taken.
enum class Sending { refused, notTaken, delivered };

/// Hands one command to the plug-in as a line over a connection of its own, closed once the network has taken
/// every byte.
///
/// The plug-in listens again only a moment after each command, so a connection that fails is tried again
/// until the time for sending is over, but only while nothing has been written: a command is never sent
/// twice. A line that could not be written to its end in time is dropped with its connection. Main thread.
/// @param json without a line feed
QCoro::Task<Sending> sendCommand(BridgeEndpoint endpoint, BridgeTiming timing, QString json);

} // namespace KelvaLR
