// Types through the adapter until a signal ends it; prints "typing" once characters are on borrowed keys.
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/XTestInputEvents.h"

#include "Support/TerminationSignals.h"

#include <QCoroTimer>

#include <QCoreApplication>

#include <chrono>
#include <cstdio>

namespace {

QCoro::Task<> settleAndTell()
{
    std::puts("typing");
    std::fflush(stdout);
    co_await QCoro::sleepFor(std::chrono::milliseconds(5));
}

} // namespace

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    using namespace KelvaLR;
    const QCoreApplication application(argc, argv);
    const TerminationSignals signals_;
    const X11Connection connection;
    XTestInputEvents input(connection, settleAndTell);
    QObject::connect(&signals_, &TerminationSignals::terminationRequested, &application,
                     &QCoreApplication::quit);
    const QCoro::Task<bool> typing = input.postText(u"中文字é"_s.repeated(100'000));
    return QCoreApplication::exec();
}
