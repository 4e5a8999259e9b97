// The window with much in it, offscreen and with the software renderer: ten thousand imported photos, and
// texts of a megabyte. The plug-in is scripted and answers at once; everything else is what the program runs.
//
//     window_benchmark [photos]

#include "AppIntents/AppIntentRouter.h"
#include "FrameClock.h"
#include "Platform/Linux/SettingsPreferences.h"
#include "Platform/Unavailable/UnavailableAppearance.h"
#include "ResidentMemory.h"
#include "Services/Assistant/AssistantActionRunner.h"
#include "Services/Lightroom/LightroomConnectionWatch.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Stores/AppModel.h"
#include "Support/LightroomRig.h"
#include "Support/ScriptedAssistantProvider.h"
#include "Support/VoiceDoubles.h"
#include "Support/WaitForTask.h"
#include "Views/MainWindowHost.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QQuickItem>
#include <QtTest/QTest>

#include <cstdio>
#include <filesystem>

namespace {

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto framePitch = 16ms; ///< of a display with 60 frames a second

void print(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

QString milliseconds(double value)
{
    return u"%1 ms"_s.arg(value, 0, 'f', 1);
}

void printMemory(const QString &moment)
{
    print(u"memory %1: %2 MB"_s.arg(moment).arg(residentMegabytes(), 0, 'f', 1));
}

/// The window over the real model and services.
struct Workspace
{
    Workspace()
    {
        if (!host.window()) {
            qFatal("The window could not be loaded.");
        }
        clock.show([this] { window().show(); });
        list = item("QQuickListView");
    }

    [[nodiscard]] QQuickWindow &window() const { return *host.window(); }

    /// The first item in sight of this class.
    [[nodiscard]] QQuickItem *item(const char *type) const
    {
        for (QQuickItem *candidate : window().findChildren<QQuickItem *>()) {
            if (candidate->inherits(type) && candidate->isVisible() && candidate->window() == &window()) {
                return candidate;
            }
        }
        qFatal("The window shows no %s.", type);
    }

    LightroomRig lightroom;
    MacComputerUseService computerUse{*lightroom.service, lightroom.automation, lightroom.applications};
    LightroomConnectionWatch connection{*lightroom.service, lightroom.applications, lightroom.listening};
    AssistantActionRunner actions{*lightroom.service, computerUse};
    ScriptedAssistantProvider assistant;
    RecordingRealtimeVoiceService realtime;
    RecordingWakePhraseListener wakePhrase;
    RecordingSpokenFeedback speech;
    QTemporaryDir folder;
    SettingsPreferences preferences{folder.filePath(u"KelvaLR.ini"_s)};
    AppModel model{{assistant, computerUse, realtime, wakePhrase, speech, *lightroom.service, connection,
                    actions, lightroom.applications, preferences}};
    AppIntentRouter router;
    UnavailableAppearance appearance;
    MainWindowHost host{{model, router, preferences, *lightroom.service, appearance}};
    FrameClock clock{window()};
    QQuickItem *list = nullptr; ///< what the artifact area scrolls
};

/// A folder of small photos: a few real ones, each under many names.
void makePhotos(const QString &folder, int count)
{
    constexpr int different = 10;
    const auto name = [&](int i) { return u"%1/photo-%2.jpg"_s.arg(folder).arg(i); };
    for (int i = 0; i < count; ++i) {
        if (i < different) {
            QImage picture(640, 427, QImage::Format_RGB32);
            picture.fill(QColor::fromHsv(i * 36, 160, 200));
            picture.save(name(i), nullptr, 85);
        } else {
            std::filesystem::create_hard_link(name(i % different).toStdString(), name(i).toStdString());
        }
    }
}

void measureImport(Workspace &workspace, const QString &folder)
{
    workspace.lightroom.plugin.answer(ScriptedPlugin::successReply(u"Imported photos from folder"_s));
    QElapsedTimer clock;
    clock.start();
    waitForTask(workspace.lightroom.service->importFolder(folder));
    const double bridge = double(clock.nsecsElapsed()) / 1e6;

    clock.restart();
    waitForTask(workspace.model.importPhotos(QUrl::fromLocalFile(folder)));
    const FrameCost frame = workspace.clock.show([] {});
    const double whole = double(clock.nsecsElapsed()) / 1e6;
    print(u"import of %1 photos: %2 until they are shown, %3 of it in the bridge; last frame %4"_s.arg(
        QString::number(workspace.model.importedPhotos().size()), milliseconds(whole), milliseconds(bridge),
        milliseconds(frame.work)));
}

/// Moves through the whole length, one step for each frame of the display.
void measureScrolling(Workspace &workspace, const QString &name, qreal step)
{
    const auto value = [&](const char *property) { return workspace.list->property(property).toReal(); };
    const qreal first = value("originY") - value("topMargin");
    const auto end = [&] {
        return value("originY") + value("contentHeight") + value("bottomMargin") - value("height");
    };
    QList<double> frames;
    QList<double> steps;
    qreal y = first;
    do {
        y += step;
        const FrameCost frame = workspace.clock.show([&] { workspace.list->setProperty("contentY", y); });
        const double rest = std::max(1.0, double(framePitch.count()) - frame.untilShown);
        frames.append(frame.work);
        steps.append(frame.work + FrameClock::pause(std::chrono::milliseconds(int(rest))));
    } while (y < end());
    workspace.list->setProperty("contentY", first);
    print(u"%1, %2 steps of %3 points: frames %4"_s.arg(name, QString::number(steps.size()),
                                                        QString::number(step), summary(frames)));
    print(u"    with what comes until the next step, such as pictures: %1"_s.arg(summary(steps)));
}

void measureClicks(Workspace &workspace)
{
    const QQuickItem *cells = workspace.item("QQuickGridView");
    int changed = 0;
    QObject::connect(
        workspace.host.artifact().photos(), &QAbstractItemModel::dataChanged, &workspace.window(),
        [&](const QModelIndex &from, const QModelIndex &to) { changed += to.row() - from.row() + 1; });
    for (const int column : {0, 1, 2}) {
        const QPointF place = cells->mapToScene(QPointF(74 * column + 32, 32));
        changed = 0;
        const FrameCost frame = workspace.clock.show(
            [&] { QTest::mouseClick(&workspace.window(), Qt::LeftButton, {}, place.toPoint()); });
        print(u"click on photo %1: %2 cells change, %3 selected, frame %4"_s.arg(
            QString::number(column), QString::number(changed),
            QString::number(workspace.model.selectedImportedPhotos().size()), milliseconds(frame.work)));
    }
}

/// One million characters of lines, or one line of them.
QString oneMillion(const QString &unit)
{
    QString text;
    while (text.size() < 1'000'000) {
        text += unit;
    }
    return text;
}

void measureText(Workspace &workspace, const QString &name, const ComputerUseResult &result)
{
    const FrameCost frame = workspace.clock.show(
        [&] { workspace.model.applyRealtimeComputerUseResult(result, AppModel::Speak::no); });
    const double afterwards = FrameClock::pause(1s);
    print(u"%1 of 1 MB: shown after %2, %3 of work in the second after it"_s.arg(
        name, milliseconds(frame.untilShown), milliseconds(afterwards)));
    QList<double> works;
    for (int i = 1; i <= 40; ++i) {
        works.append(workspace.clock.show([&] { workspace.list->setProperty("contentY", 74 * i); }).work);
    }
    print(u"    scrolling in it: %1"_s.arg(summary(works)));
}

void measureTexts(Workspace &workspace)
{
    const QString lines = oneMillion(u"- A **warm** look with lifted blacks and a soft contrast\n"_s);
    const QString line = oneMillion(u"warm and faded "_s);
    measureText(workspace, u"reply of lines"_s, {lines, {}});
    measureText(workspace, u"reply of one line"_s, {line, {}});
    const auto card = [](const QString &body) {
        return Artifact::make(ArtifactKind::markdown, u"Look"_s, ArtifactStatus::ready, body);
    };
    measureText(workspace, u"artifact of lines"_s, {u"Done"_s, card(lines)});
    measureText(workspace, u"artifact of one line"_s, {u"Done"_s, card(line)});
}

void measurePhotos(Workspace &workspace, int count)
{
    const QTemporaryDir folder;
    makePhotos(folder.path(), count);
    printMemory(u"of the empty window"_s);
    measureImport(workspace, folder.path());
    printMemory(u"with the photos"_s);
    measureClicks(workspace);
    measureScrolling(workspace, u"scrolling by the wheel"_s, 74);
    printMemory(u"after scrolling through all of them"_s);
    measureScrolling(workspace, u"dragging the scroll bar"_s, 1500);
    printMemory(u"after dragging through all of them"_s);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    const int photos = QGuiApplication::arguments().value(1, u"10000"_s).toInt();
    if (photos < 1) {
        std::fputs("usage: window_benchmark [photos]\n", stderr);
        return 2;
    }
    try {
        {
            Workspace workspace;
            measurePhotos(workspace, photos);
        }
        Workspace workspace;
        measureTexts(workspace);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "window_benchmark: %s\n", error.what());
        return 1;
    }
    return 0;
}
