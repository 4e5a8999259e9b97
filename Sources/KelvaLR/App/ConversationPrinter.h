#pragma once

#include "App/CommandLine.h"
#include "Models/Artifact.h"
#include "Models/ConversationMessage.h"

#include <QByteArray>
#include <QObject>

#include <cstdio>

namespace KelvaLR {

class AppModel;

/// Prints the conversation and the artifacts of a model as they come.
class ConversationPrinter : public QObject
{
    Q_OBJECT

public:
    /// Whether the user's own messages are printed too; in a terminal they already stand on the screen.
    enum class Echo { off, on };

    /// @param output stays open for as long as the printer lives
    ConversationPrinter(const AppModel &model, OutputFormat format, Echo echo, std::FILE *output);

private:
    void print(const ConversationMessage &message);
    void print(const Artifact &artifact);
    void writeLine(const QByteArray &line);

    OutputFormat m_format;
    Echo m_echo;
    std::FILE *m_output;
};

} // namespace KelvaLR
