#include "Support/LightroomRig.h"

#include <QCoroTimer>

namespace KelvaLR::Testing {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

QCoro::Task<std::expected<void, QString>> FakeRunningApplications::open(QUrl application)
{
    co_await QCoro::sleepFor(0ms);
    m_journal.append("open "_L1 + application.toString());
    co_return auto(opening); // co_return would move from the member itself
}

QCoro::Task<std::expected<QString, QString>> FakeLightroomMenus::clickBridgeStatus()
{
    co_await QCoro::sleepFor(0ms);
    m_journal.append(u"bridge status"_s);
    whenClicked();
    co_return auto(answer);
}

QCoro::Task<> FakeLightroomMenus::openPluginManager()
{
    co_await QCoro::sleepFor(0ms);
    m_journal.append(u"plug-in manager"_s);
}

QCoro::Task<PortListener> FakeListeningPrograms::listenerOn(quint16)
{
    ++questions;
    whenAsked();
    PortListener answer = listener; // a question may outlive the test that asked it
    co_await QCoro::sleepFor(0ms);
    co_return answer;
}

BridgeTiming impatientTiming()
{
    return {.send = 250ms,
            .retry = 5ms,
            .reply = 400ms,
            .poll = 20ms,
            .queue = 5ms,
            .start = 5ms,
            .activation = 1ms,
            .developModule = 1ms,
            .loupe = 1ms};
}

BridgeTiming patientTiming()
{
    BridgeTiming timing = impatientTiming();
    timing.send = 15s;
    timing.reply = 15s;
    return timing;
}

} // namespace KelvaLR::Testing
