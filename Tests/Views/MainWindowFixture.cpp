#include "Views/MainWindowFixture.h"

#include <QTextDocument>
#include <QTextDocumentFragment>

namespace KelvaLR::Testing {

using namespace Qt::StringLiterals;

namespace {

QStringList &warnings()
{
    static QStringList messages;
    return messages;
}

void recordWarning(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    const bool isOfOffscreenPlatform = message.startsWith("This plugin does not support "_L1);
    if (type != QtDebugMsg && type != QtInfoMsg && !isOfOffscreenPlatform) {
        warnings().append(message);
    }
}

QAccessibleInterface *namedDescendant(QAccessibleInterface *parent, const QString &name)
{
    for (int i = 0; parent && i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        if (!child || child->state().invisible) {
            continue;
        }
        const bool isControl = child->role() != QAccessible::StaticText;
        if (isControl && child->text(QAccessible::Name) == name) {
            return child;
        }
        if (QAccessibleInterface *found = namedDescendant(child, name)) {
            return found;
        }
    }
    return nullptr;
}

QQuickItem *descendantWithText(QQuickItem *parent, const QString &text)
{
    for (QQuickItem *child : parent->childItems()) {
        if (!child->isVisible()) {
            continue;
        }
        const QString shown = child->property("text").toString();
        if (shown == text ||
            (Qt::mightBeRichText(shown) && QTextDocumentFragment::fromHtml(shown).toPlainText() == text)) {
            return child;
        }
        if (QQuickItem *found = descendantWithText(child, text)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

MainWindowTest::MainWindowTest()
{
    qInstallMessageHandler(recordWarning);
    reopen();
}

MainWindowTest::~MainWindowTest()
{
    host.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    qInstallMessageHandler(nullptr);
}

void MainWindowTest::TearDown()
{
    EXPECT_EQ(std::exchange(warnings(), {}), QStringList());
    AppModelTest::TearDown();
}

void MainWindowTest::reopen()
{
    host.reset();
    savedPreferences = std::make_unique<SettingsPreferences>(folder.filePath(u"KelvaLR.ini"_s));
    host = std::make_unique<MainWindowHost>(
        MainWindowSources{*model, router, *savedPreferences, *lightroom.service, appearance});
    window().show();
    window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()) && QTest::qWaitForWindowActive(&window()));
}

QAccessibleInterface *MainWindowTest::control(QWindow &window, const QString &name)
{
    return namedDescendant(QAccessible::queryAccessibleInterface(&window), name);
}

QRect MainWindowTest::place(QWindow &window, const QString &name)
{
    QAccessibleInterface *found = control(window, name);
    return found ? found->rect().translated(-window.geometry().topLeft()) : QRect();
}

void MainWindowTest::click(QWindow &window, const QString &name, Qt::KeyboardModifiers modifiers)
{
    const QRect target = place(window, name);
    ASSERT_TRUE(target.isValid()) << "there is no " << name.toStdString();
    QTest::mouseClick(&window, Qt::LeftButton, modifiers, target.center());
}

void MainWindowTest::click(const QString &name, Qt::KeyboardModifiers modifiers)
{
    click(window(), name, modifiers);
}

void MainWindowTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&window(), key, modifiers);
}

void MainWindowTest::type(const QString &text)
{
    for (const QChar c : text) {
        QTest::sendKeyEvent(QTest::Click, &window(), Qt::Key_unknown, c, Qt::NoModifier);
    }
}

QQuickItem *MainWindowTest::itemWithText(const QQuickWindow &window, const QString &text)
{
    return descendantWithText(
        window.contentItem()->parentItem() ? window.contentItem()->parentItem() : window.contentItem(), text);
}

bool MainWindowTest::willShow(const QString &text) const
{
    return waitUntil([&] { return shows(text); });
}

} // namespace KelvaLR::Testing
