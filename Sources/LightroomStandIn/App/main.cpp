#include "App/CommandLine.h"
#include "App/HeadlessMode.h"
#include "App/Session.h"
#include "App/WindowedMode.h"
#include "SamplePhotos/SamplePhotos.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>

using namespace StandIn;

namespace {

/// What the arguments say decides which application object there is, so they are read before there is one.
QStringList texts(int count, char **arguments)
{
    QStringList list;
    std::transform(arguments, arguments + count, std::back_inserter(list),
                   [](const char *argument) { return QString::fromLocal8Bit(argument); });
    return list;
}

int paint(const QString &folder, int &argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    const auto painted = paintSamplePhotos(folder);
    return painted ? EXIT_SUCCESS : fail(painted.error());
}

} // namespace

int main(int argc, char **argv)
{
    const auto line = readCommandLine(texts(argc, argv));
    if (!line) {
        return fail(line.error());
    }
    if (line->isHelpWanted) {
        const QCoreApplication application(argc, argv); // knows the program's name
        say(stdout, usage());
        return EXIT_SUCCESS;
    }
    if (!line->sampleFolder.isEmpty()) {
        return paint(line->sampleFolder, argc, argv);
    }
    return line->isHeadless ? runHeadless(*line, argc, argv) : runWindowed(*line, argc, argv);
}
