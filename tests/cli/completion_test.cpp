#include "support/command_line.h"
#include "support/terminal.h"

/// Names that mean something to a shell, or to a terminal.
const QString shellName = u"Aa $(touch ran) `touch ran` \"q\" 'r' \\s !x ~{a,b}*?; touch ran"_s;
const QString controlName = u"Bb\n\x1b[31m\t\u009b"_s;

/// What is typed into a real bash, "→" for the Tab key, becomes these words.
TEST_F(CommandLineTest, BashCompletesWhateverItIsCalledAndRunsNothing)
{
    for (const QString &name : {shellName, controlName, u"Cc\x01one"_s, u"Cc\x01two"_s, u"D:d=e@f"_s})
        ASSERT_EQ(cli({u"new"_s, name}).status, 0);
    ASSERT_EQ(statusOf(u"sites remove Softpedia"_s), 0);
    put(home() + u"/some file"_s, "");
    // It stands for the program; what it is called with otherwise is written down.
    put(home() + u"/quillon-cli"_s, "#!/bin/sh\n[ \"$1\" = complete ] && exec '" QUILLON_CLI "' --home '" +
                                        QFile::encodeName(home()) +
                                        "' \"$@\"\nprintf '%s\\0' \"$@\" >>words\n");
    QFile::setPermissions(home() + u"/quillon-cli"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    const std::pair<QString, QStringList> table[] = {
        {u"show A→"_s, {u"show"_s, shellName}},
        {u"show \"A→"_s, {u"show"_s, shellName}},
        {u"show 'Aa $→"_s, {u"show"_s, shellName}},
        {u"show A\"a $(to→"_s, {u"show"_s, shellName}},
        {u"show B→ comp→N→"_s, {u"show"_s, controlName, u"companyName"_s}},
        {u"show \"B→"_s, {u"show"_s, controlName}},
        {u"show C→t→"_s, {u"show"_s, u"Cc\x01two"_s}},
        {u"show D:d=→"_s, {u"show"_s, u"D:d=e@f"_s}},
        {u"set D→ companyN→x categoryPopUp=Web→Wiz→"_s,
         {u"set"_s, u"D:d=e@f"_s, u"companyName=x"_s,
          u"categoryPopUp=Web Development::Wizards & Components"_s}},
        {u"sites rest→ Softp→"_s, {u"sites"_s, u"restore"_s, u"Softpedia"_s}},
        {u"check --js→ A→"_s, {u"check"_s, u"--json"_s, shellName}},
        {u"change --wh→ programN→x companyN→y Aa→"_s,
         {u"change"_s, u"--where"_s, u"programName=x"_s, u"companyName=y"_s, shellName}},
        {u"new --li→ A→"_s, {u"new"_s, u"--like"_s, shellName}},
        {u"imp→ some→"_s, {u"import"_s, u"some file"_s}},
        {u"show some→"_s, {u"show"_s, u"some"_s}},
    };
    QByteArray typed = "PATH=.:$PATH; . '" QUILLON_COMPLETIONS "/quillon-cli.bash'\r";
    QByteArray expected;
    for (const auto &[line, words] : table) {
        typed += "quillon-cli " + QString(line).replace(u'→', u'\t').toUtf8() + '\r';
        expected += words.join(QChar()).toUtf8() + '\0';
    }
    const Terminal terminal;
    QProcess bash;
    bash.setWorkingDirectory(home());
    bash.setStandardInputFile(terminal.path());
    bash.setStandardOutputFile(terminal.path());
    bash.setStandardErrorFile(terminal.path());
    bash.start(u"bash"_s, {u"--norc"_s, u"--noprofile"_s, u"-i"_s});
    terminal.write(typed + "exit\r");
    QByteArray shown;
    for (int turn = 0; turn < 200 && !bash.waitForFinished(10); ++turn)
        shown += terminal.read();
    EXPECT_EQ(contents(home() + u"/words"_s).split('\0'), expected.split('\0')) << shown.toStdString();
    EXPECT_FALSE(QFile::exists(home() + u"/ran"_s));
}

/// The values of options, those of another home folder, which stays as it is.
TEST_F(CommandLineTest, ValuesOfOptionsAreCompletedInBothForms)
{
    const QTemporaryDir other;
    for (const QStringList &command : {QStringList{u"new"_s, u"Tide"_s},
                                       {u"new"_s, u"Bell"_s},
                                       {u"delete"_s, u"Bell"_s},
                                       {u"sites"_s, u"add"_s, u"Mine"_s, u"m"_s}})
        ASSERT_EQ(runCli(other.path(), command).status, 0);
    const std::pair<QString, QString> table[] = {
        {u"show T"_s, u"Tide"_s},
        {u"sites --for T"_s, u"Tide"_s},
        {u"sites --for=T"_s, u"--for=Tide"_s},
        {u"new --like= T"_s, {}},
        {u"new N --like=T"_s, u"--like=Tide"_s},
        {u"undelete B"_s, u"Bell"_s},
        {u"sites edit Mi"_s, u"Mine"_s},
        {u"fix T --only=ver"_s, {}},
        {u"check --format=ju"_s, u"--format=junit"_s},
        {u"release --status=Ma"_s, u"--status=Major Update"_s},
        {u"change --where=companyName=x Ti"_s, u"Tide"_s},
        {u"change --where=companyN"_s, u"--where=companyName="_s},
        {u"show --json=T"_s, {}},
        {u"show -- --for=T"_s, {}},
    };
    const auto before = tree(other.path());
    for (const auto &[typed, word] : table) {
        for (const QStringList &homeOption :
             {QStringList{u"--home"_s, other.path()}, {u"--home="_s + other.path()}}) {
            const CliResult found = cli(QStringList{u"complete"_s, u"--"_s} + homeOption + typed.split(u' '));
            EXPECT_EQ(QString::fromUtf8(found.output), word.isEmpty() ? word : QString(word + QChar()))
                << typed;
            EXPECT_EQ(found.messages, "");
        }
    }
    for (const QString &file : {u"--home=x"_s, u"--home x"_s, u"release --file=x"_s, u"release --file x"_s})
        EXPECT_EQ(statusOf(u"complete -- "_s + file), 1) << file;
    EXPECT_EQ(tree(other.path()), before);
}
