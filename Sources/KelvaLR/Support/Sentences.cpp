#include "Support/Sentences.h"

#include <QTextBoundaryFinder>

namespace KelvaLR {

QStringList sentences(const QString &text)
{
    QStringList found;
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Sentence, text);
    qsizetype begin = 0;
    for (qsizetype end = boundaries.toNextBoundary(); end > 0; end = boundaries.toNextBoundary()) {
        // The rules of Unicode see an end in the full stop of a file name, too.
        if (end == text.size() || text.at(end - 1).isSpace()) {
            found.append(text.sliced(begin, end - begin));
            begin = end;
        }
    }
    return found;
}

} // namespace KelvaLR
