#include "support/command_line.h"

#include <QDateTime>

/// A session as a file of cli/sessions tells it. A run is a line "STATUS ARGUMENTS", and below it indented
/// what is expected: the whole output, or a part of it with "~ " before each line; "2> " and a part of the
/// messages, without which there are none. Other lines: "put FILE" with its content, indented; "block FILE"
/// puts a folder in place of a file of the data folder; between "remember" and "unchanged" nothing is stored.
class CliSession : public CommandLineTest, public testing::WithParamInterface<QString>
{
protected:
    void step(const QString &head, const QStringList &below)
    {
        const QString argument = head.section(u' ', 1);
        if (head == u"remember")
            m_before = {files(), times()};
        else if (head == u"unchanged")
            EXPECT_EQ(std::pair(files(), times()), m_before);
        else if (head.startsWith(u"put "))
            ASSERT_TRUE(put(home() + u'/' + argument, below.join(u'\n').toUtf8())) << head;
        else if (head.startsWith(u"block "))
            ASSERT_TRUE(QFile::remove(inData(argument)) && QDir().mkdir(inData(argument))) << head;
        else
            expect(run(argument), head, below);
    }

private:
    /// When each file of the titles was last changed.
    static QMap<QString, QDateTime> times()
    {
        QMap<QString, QDateTime> all;
        QDirIterator walk(mwqnAppSuppLoc, {u"*.qn*"_s, u"error.log"_s}, QDir::AllEntries,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = walk.next();
            all[path] = walk.fileInfo().lastModified();
        }
        return all;
    }

    static void expect(const CliResult &result, const QString &head, const QStringList &below)
    {
        const QString why = head + u'\n' + QString::fromUtf8(result.messages + result.output.left(3000));
        EXPECT_EQ(result.status, head.section(u' ', 0, 0).toInt()) << why;
        QStringList whole;
        QStringList part;
        bool isTold = false;
        for (const QString &line : below) {
            if (line.startsWith(u"2> ")) {
                isTold = true;
                EXPECT_TRUE(result.messages.contains(line.sliced(3).toUtf8())) << line << " of " << why;
            } else if (line.startsWith(u"~ ")) {
                part.append(line.sliced(2));
            } else {
                whole.append(line + u'\n');
            }
        }
        EXPECT_EQ(isTold, !result.messages.isEmpty()) << why;
        EXPECT_TRUE(result.output.contains(part.join(u'\n').toUtf8())) << why;
        EXPECT_TRUE(whole.isEmpty() || whole.join(QString()).toUtf8() == result.output) << why;
    }

    std::pair<QMap<QString, QByteArray>, QMap<QString, QDateTime>> m_before;
};

TEST_P(CliSession, GoesAsItIsWritten)
{
    QString head;
    QStringList below;
    const QString text = QString::fromUtf8(contents(QStringLiteral(QUILLON_SESSIONS "/") + GetParam()));
    for (const QString &line : QString(text + u"end").split(u'\n')) {
        if (line.startsWith(u"    ")) {
            below.append(line.sliced(4));
        } else if (!line.isEmpty() && !line.startsWith(u'#')) {
            if (!head.isEmpty())
                step(head, below);
            head = line;
            below.clear();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, CliSession, testing::ValuesIn(names(QStringLiteral(QUILLON_SESSIONS))),
                         [](const auto &file) { return file.param.section(u'.', 0, 0).toStdString(); });
