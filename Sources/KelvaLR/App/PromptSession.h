#pragma once

#include <QCoroTask>

#include <QStringList>

#include <chrono>

namespace KelvaLR {

class AppModel;
class StandardInputLines;

/// How long a command-line mode waits for one answer. Longer than the slowest road: a chat reply (60 s) whose
/// action starts the bridge and then times out (30 s).
inline constexpr std::chrono::seconds answerDeadline{120};

/// Submits each prompt through the model and waits for its answer before the next.
/// @return the exit status: 0 when every prompt was answered; otherwise standard error says why, and which
/// were not sent at all
QCoro::Task<int> answerPrompts(AppModel &model, QStringList prompts,
                               std::chrono::milliseconds deadline = answerDeadline);

/// What a terminal session prints before it reads a line: a prompt for a person, nothing for a pipe.
enum class LinePrompt { hidden, shown };

/// Submits each line that is not blank and waits for its answer; "exit" and "quit" end the session like the
/// end of the input.
/// @return the exit status, as for answerPrompts
QCoro::Task<int> answerLines(AppModel &model, StandardInputLines &lines, LinePrompt linePrompt,
                             std::chrono::milliseconds deadline = answerDeadline);

} // namespace KelvaLR
