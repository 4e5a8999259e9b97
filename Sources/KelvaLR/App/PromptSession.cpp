#include "App/PromptSession.h"

#include "App/StandardInputLines.h"
#include "Stores/AppModel.h"
#include "Support/TextTrimming.h"

#include <QCoroTimer>
#include <QDeadlineTimer>
#include <QPointer>
#include <QTimer>

#include <cstdio>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// Waits until the model has answered; false when it has not within the time or is gone. A reply that asks
/// for an action ends one request and begins the next within one turn of the event loop, so a change is
/// looked at a turn later.
QCoro::Task<bool> isAnswered(QPointer<AppModel> model, std::chrono::milliseconds timeout)
{
    const QDeadlineTimer deadline(timeout);
    QTimer nextLook;
    nextLook.setSingleShot(true);
    const auto lookSoon = [&nextLook] { nextLook.start(0); };
    QObject::connect(model, &AppModel::isRespondingChanged, &nextLook, lookSoon);
    QObject::connect(model, &QObject::destroyed, &nextLook, lookSoon);
    while (model && model->isResponding() && !deadline.hasExpired()) {
        nextLook.start(std::chrono::ceil<std::chrono::milliseconds>(deadline.remainingTimeAsDuration()));
        co_await nextLook;
    }
    co_return model && !model->isResponding();
}

QCoro::Task<bool> answer(QPointer<AppModel> model, QString prompt, std::chrono::milliseconds timeout)
{
    if (trimmedWhitespace(prompt).isEmpty()) {
        std::fputs("kelvalr: A blank prompt has no answer.\n", stderr);
        co_return false;
    }
    model->setPromptText(prompt);
    model->submitPrompt();
    if (!co_await isAnswered(model, timeout)) {
        std::fputs("kelvalr: No answer came in time.\n", stderr);
        co_return false;
    }
    co_return true;
}

} // namespace

QCoro::Task<int> answerPrompts(AppModel &model, QStringList prompts, std::chrono::milliseconds deadline)
{
    const QPointer<AppModel> liveModel(&model);
    int status = 0;
    for (const QString &prompt : std::as_const(prompts)) {
        if (!liveModel) {
            co_return 1;
        }
        if (liveModel->isResponding()) { // it takes one at a time
            std::fprintf(stderr, "kelvalr: Not sent, since the one before has no answer yet: %s\n",
                         qUtf8Printable(prompt));
            status = 1;
            continue;
        }
        if (!co_await answer(liveModel, prompt, deadline)) {
            status = 1;
        }
    }
    co_return status;
}

QCoro::Task<int> answerLines(AppModel &model, StandardInputLines &lines, LinePrompt linePrompt,
                             std::chrono::milliseconds deadline)
{
    const QPointer<AppModel> liveModel(&model);
    const QPointer<StandardInputLines> liveLines(&lines);
    while (liveModel && liveLines) {
        if (linePrompt == LinePrompt::shown) {
            std::fputs("> ", stdout);
            std::fflush(stdout);
        }
        const std::optional<QString> line = co_await liveLines->next();
        if (!line && linePrompt == LinePrompt::shown) {
            std::fputs("\n", stdout); // leaves the shell's prompt on a line of its own
        }
        const QString request = trimmedWhitespace(line.value_or(u"exit"_s));
        if (request == "exit"_L1 || request == "quit"_L1) {
            co_return 0;
        }
        if (!request.isEmpty() && liveModel && !co_await answer(liveModel, request, deadline)) {
            co_return 1;
        }
    }
    co_return 1;
}

} // namespace KelvaLR
