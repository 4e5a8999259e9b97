#pragma once

#include "AppIntents/AppIntentRouter.h"
#include "Platform/Appearance.h"
#include "Platform/Linux/SettingsPreferences.h"
#include "Stores/AppModelFixture.h"
#include "Views/MainWindowHost.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QtTest/QTest>

namespace KelvaLR::Testing {

class FixedAppearance final : public Appearance
{
public:
    bool isDark() const override { return dark; }

    bool isMotionReduced() const override { return true; }

    bool dark = false;
};

/// The real window over the real model. A control is found as assistive technology finds it, by its
/// accessible name, and used by mouse and keyboard. A warning of the QML engine fails the test.
class MainWindowTest : public AppModelTest
{
public:
    ~MainWindowTest() override;

protected:
    MainWindowTest();

    void TearDown() override;

    /// Opens the window again, as after a restart.
    void reopen();

    [[nodiscard]] QQuickWindow &window() const { return *host->window(); }

    /// The control with this accessible name in a window; none when it is not shown.
    [[nodiscard]] static QAccessibleInterface *control(QWindow &window, const QString &name);

    [[nodiscard]] QAccessibleInterface *control(const QString &name) const { return control(window(), name); }

    /// Where a control is, in its window.
    [[nodiscard]] static QRect place(QWindow &window, const QString &name);

    [[nodiscard]] QRect place(const QString &name) const { return place(window(), name); }

    void click(const QString &name, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void click(QWindow &window, const QString &name, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);

    /// The shown item whose text is this; none when there is none.
    [[nodiscard]] static QQuickItem *itemWithText(const QQuickWindow &window, const QString &text);

    [[nodiscard]] bool shows(const QString &text) const { return itemWithText(window(), text) != nullptr; }

    /// Waits until a window shows a text.
    [[nodiscard]] bool willShow(const QString &text) const;

    QTemporaryDir folder;
    AppIntentRouter router;
    FixedAppearance appearance;
    std::unique_ptr<SettingsPreferences> savedPreferences;
    std::unique_ptr<MainWindowHost> host;
};

} // namespace KelvaLR::Testing
