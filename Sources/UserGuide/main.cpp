// user_guide GUIDE               makes the tables of the user guide anew from the code's own
// user_guide --check GUIDE       says which of them differ from what the code says
// user_guide --requests GUIDE    prints the requests that the guide gives for examples, one a line: yes where
//                                Lightroom is in front, else no; the route; the case; the text; tabs between
// user_guide --quotations GUIDE  prints what the guide says that the program says, one a line

#include "GuideText.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>

using namespace KelvaLR::UserGuide;
using namespace Qt::StringLiterals;

namespace {

int fail(const QString &sentence)
{
    std::fprintf(stderr, "user_guide: %s\n", qUtf8Printable(sentence));
    return 1;
}

void print(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
}

int write(const QString &path, const QString &text)
{
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    const bool isWritten = file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    return isWritten ? 0 : fail(u"Could not write %1: %2."_s.arg(path, file.errorString()));
}

int check(const QString &path, const QString &guide, const QString &renewed)
{
    const QStringList differing = differingTables(guide, renewed);
    return differing.isEmpty()
               ? 0
               : fail(u"%1 does not list what the code knows (%2). Run Scripts/update-user-guide."_s.arg(
                     path, differing.join(u", "_s)));
}

int printRequests(const QString &guide)
{
    const auto found = examples(guide);
    if (!found) {
        return fail(found.error());
    }
    for (const Example &example : *found) {
        print(QStringList{example.isLightroomFrontmost ? u"yes"_s : u"no"_s, example.route,
                          example.commandCase, example.text}
                  .join(u'\t'));
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QString mode = argc == 3 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (argc != 2 && mode != "--check"_L1 && mode != "--requests"_L1 && mode != "--quotations"_L1) {
        std::fputs("Usage: user_guide [--check | --requests | --quotations] GUIDE\n", stderr);
        return 2;
    }
    const QString path = QString::fromLocal8Bit(argv[argc - 1]);
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        return fail(u"Could not read %1: %2."_s.arg(path, file.errorString()));
    }
    const QString guide = QString::fromUtf8(file.readAll());
    if (mode == "--requests"_L1) {
        return printRequests(guide);
    }
    if (mode == "--quotations"_L1) {
        for (const QString &quotation : quotations(guide)) {
            print(quotation);
        }
        return 0;
    }
    const auto renewed = withTables(guide, guideTables());
    if (!renewed) {
        return fail(path + u": "_s + renewed.error());
    }
    return mode.isEmpty() ? write(path, *renewed) : check(path, guide, *renewed);
}
