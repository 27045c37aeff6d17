#include "cli/complete_command.h"

#include "cli/bash_line.h"
#include "cli/candidates.h"
#include "cli/title_session.h"

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// What shells ask when the author presses Tab.
class Complete final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        m_program = command.get_parent();
        command.description(
            "For shells: what the last of WORD can become, each with a NUL behind it; the exit "
            "status is 1 where the name of a file can stand as well");
        m_bash = command.add_option("--bash", m_wordBreaks,
                                    "WORD is the whole line as it is written in bash, which replaces what "
                                    "is behind the last of these characters");
        command.add_option("WORD", m_words, "The words after \"quillon-cli\", the last perhaps empty");
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override { return *m_bash ? completeLine() : completeWords(); }

private:
    [[nodiscard]] ExitStatus completeLine() const
    {
        BashLine line = bashLine(m_words.empty() ? QByteArrayView() : m_words.front(), m_wordBreaks);
        line.words.removeFirst(); // The program's own name.
        if (line.words.isEmpty())
            return Done;
        return tell(line.words, [&line](const QString &word) { return bashReplacement(line, word); });
    }

    [[nodiscard]] ExitStatus completeWords() const
    {
        QStringList words;
        for (const std::string &word : m_words)
            words.append(text(word));
        if (words.isEmpty())
            words.append(QString());
        return tell(words, [](const QString &word) { return word; });
    }

    template<typename Written>
    [[nodiscard]] ExitStatus tell(const QStringList &words, Written written) const
    {
        const Candidates found = candidates(*m_program, words);
        for (const QString &word : found.words)
            print(written(word).toUtf8() + '\0');
        const ExitStatus read = TitleSession::stored();
        return found.files ? AnswerIsNo : read;
    }

    CLI::App *m_program = nullptr;
    CLI::Option *m_bash = nullptr;
    std::string m_wordBreaks;
    std::vector<std::string> m_words;
};

} // namespace

std::unique_ptr<Command> completeCommand()
{
    return std::make_unique<Complete>();
}

} // namespace quillon::cli
