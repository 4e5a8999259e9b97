#include "Platform/Linux/WindowPing.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/XTestInputEvents.h"

#include "Support/WaitForTask.h"

#include <QPlainTextEdit>

#include <gtest/gtest.h>

#include <memory>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// So many different characters of the CJK block, in lines: an editor lays out a whole paragraph anew for
/// each character that is typed into it.
QString ideographs(int count)
{
    QString text;
    for (int i = 0; i < count; ++i) {
        text += QChar(u'一' + i);
        text += i % 50 == 49 ? u"\n"_s : QString();
    }
    return text;
}

TEST(TypedText, arrivesWholeAndInOrder)
{
    QPlainTextEdit editor;
    editor.setTabChangesFocus(false);
    editor.show();
    editor.activateWindow();
    const X11Connection connection;
    const QList<quint32> active{static_cast<quint32>(editor.winId())};
    ASSERT_TRUE(
        waitUntil([&] { return connection.items(connection.root(), "_NET_ACTIVE_WINDOW") == active; }));
    WindowPing ping;
    const auto input = std::make_unique<XTestInputEvents>(connection, [&ping] { return ping.answered(); });
    for (const QString &text :
         {u"Café 中 😀 e\u0301"_s, u"ß € İ ı \"'`´ «» \\ / ~^"_s, u"\tone\n\ttwo\n"_s, u"ABC abc {}[]|!?"_s,
          ideographs(3000), u"The quick brown Fox\n"_s.repeated(500)}) {
        editor.clear();
        waitForTask(input->postText(text), 50s);
        EXPECT_TRUE(waitUntil([&] { return editor.toPlainText() == text; }, 2s))
            << editor.toPlainText().toStdString();
    }
}

} // namespace
