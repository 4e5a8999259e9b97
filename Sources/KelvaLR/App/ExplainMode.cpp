#include "App/ExplainMode.h"

#include "Services/Lightroom/Language/PromptRouter.h"
#include "Services/Lightroom/Language/RouteExplanation.h"

namespace KelvaLR {

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
        const QString line = QString::fromUtf8(bytes);
        const QByteArray explanation = explainedRoute(line, routePrompt(line, frontmost)) + '\n';
        if (output.write(explanation) != explanation.size()) {
            return 1;
        }
    }
}

} // namespace KelvaLR
