#pragma once
// Runs a console tool and keeps what it prints. Arguments go to the tool as
// a list, never through a shell, so no file name can become a command.
// Meant for worker threads: the calls block until the tool has ended.

#include <QString>
#include <QStringList>
#include <stdexcept>

namespace quorvel {

class ProcessError : public std::runtime_error {
public:
    ProcessError(int number, const QString &text) : std::runtime_error(text.toStdString()), m_number(number) {}
    int number() const { return m_number; }

private:
    int m_number;
};

inline constexpr int kPipeError = 2001;
inline constexpr int kProcessError = 2003;

// Where a tool is run from: a copy beside the program wins, otherwise PATH.
QString ToolPath(const QString &name);

// `RunPiped`: starts `program` with `arguments`, standard output and error
// merged, and writes the command line, CR LF, then every byte the tool
// printed, in order, to `outputFile`. Returns true when the tool ran to its
// end. Throws ProcessError 2003 when the tool cannot be started and 2001
// when the output file cannot be written.
bool RunPiped(const QString &program, const QStringList &arguments, const QString &outputFile,
              const QString &workDir = QString());

// `ShellExecuteWait`: starts the tool and waits for it to end; false when it
// could not be started.
bool ShellExecuteWait(const QString &program, const QStringList &arguments);

// The command line as it is written at the top of the output file.
QString CommandLineText(const QString &program, const QStringList &arguments);

} // namespace quorvel
