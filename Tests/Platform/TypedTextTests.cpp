#include "Platform/Linux/WindowPing.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/XTestInputEvents.h"

#include "Support/WaitForTask.h"

#include <QPlainTextEdit>
#include <QProcess>

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Testing::waitForTask;
using Testing::waitUntil;

constexpr char16_t firstIdeograph = 0x4e00;

/// So many different characters of the CJK block.
QString ideographs(int count)
{
    QString text;
    for (int i = 0; i < count; ++i) {
        text += QChar(firstIdeograph + i);
    }
    return text;
}

/// An editor lays out a whole paragraph anew for each character that is typed into it.
QString inLines(const QString &text)
{
    constexpr qsizetype lineLength = 50;
    QString lines;
    for (qsizetype i = 0; i < text.size(); i += lineLength) {
        lines += text.mid(i, lineLength) + u'\n';
    }
    return lines;
}

class TypedText : public testing::TestWithParam<QString>
{
};

TEST_P(TypedText, arrivesWholeAndInOrder)
{
    QPlainTextEdit editor;
    editor.setTabChangesFocus(false);
    editor.show();
    editor.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return editor.hasFocus(); }));
    const X11Connection connection;
    WindowPing ping;
    XTestInputEvents input(connection, [&ping] { return ping.answered(); });
    waitForTask(input.postText(GetParam()), 50s);
    EXPECT_TRUE(waitUntil([&] { return editor.toPlainText() == GetParam(); }, 2s))
        << editor.toPlainText().toStdString();
}

TEST(TypedTextInGtk, arrivesInAProgramOfAnotherToolkit)
{
    const QString text = u"Café ß 😀 e\u0301 "_s + ideographs(300);
    QProcess dialog;
    dialog.start(u"zenity"_s, {u"--entry"_s});
    const X11Connection connection;
    ASSERT_TRUE(waitUntil([&] {
        const auto active = connection.items(connection.root(), "_NET_ACTIVE_WINDOW");
        return active && !active->isEmpty() &&
               connection.text(active->constFirst(), "WM_CLASS").value_or("").contains("zenity");
    }));
    WindowPing ping;
    XTestInputEvents input(connection, [&ping] { return ping.answered(); });
    waitForTask(input.postText(text + u'\n'));
    ASSERT_TRUE(waitUntil([&] { return dialog.state() == QProcess::NotRunning; }));
    EXPECT_EQ(QString::fromUtf8(dialog.readAllStandardOutput()), text + u'\n');
}

INSTANTIATE_TEST_SUITE_P(Texts, TypedText,
                         testing::Values(u"Café 中 😀 e\u0301"_s, u"ß € İ ı \"'`´ «» \\ / ~^"_s,
                                         u"\tone\n\ttwo\n"_s, u"ABC abc {}[]|!?"_s, inLines(ideographs(3000)),
                                         u"The quick brown Fox\n"_s.repeated(500)));

} // namespace

} // namespace KelvaLR
