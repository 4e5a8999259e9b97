#include "App/ExplainMode.h"

#include "Services/Lightroom/Language/PromptRouter.h"
#include "Services/Lightroom/Language/RouteExplanation.h"

#include <QStringDecoder>

namespace KelvaLR {

namespace {

/// The line as it stands: a byte order mark at its head is a character of it, and bytes that are no UTF-8
/// become U+FFFD.
QString decoded(const QByteArray &bytes)
{
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom).decode(bytes);
}

} // namespace

int explainRequests(QIODevice &input, QIODevice &output, const FrontmostApplication &frontmost)
{
    while (true) {
        QByteArray bytes = input.readLine();
        if (bytes.isEmpty()) {
            return 0;
        }
        if (bytes.endsWith('\n')) {
            bytes.chop(1);
        }
        const QString line = decoded(bytes);
        const QByteArray explanation = explainedRoute(line, routePrompt(line, frontmost)) + '\n';
        if (output.write(explanation) != explanation.size()) {
            return 1;
        }
    }
}

} // namespace KelvaLR
