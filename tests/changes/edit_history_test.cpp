#include "changes/edit_history.h"
#include "changes/restoring.h"
#include "editor/editor.h"
#include "journal/journal.h"
#include "overview/title_operations.h"
#include "store/storage_status.h"
#include "store/title_folder.h"
#include "support/faults.h"
#include "support/recorders.h"
#include "support/temporary_home.h"

#include <random>

using namespace std::chrono_literals;

namespace {

struct EditHistoryTest : TemporaryDataFolder
{
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"T"_s));
        open(u"T"_s);
    }
    void TearDown() override
    {
        Journal::ofDataFolder().close();
        TemporaryDataFolder::TearDown();
    }
    void open(const QString &title)
    {
        selectTitle(title);
        editor.loadPADData();
        editor.checkEntriesForErrors();
    }
    static QMap<QString, QByteArray> files() { return tree(*mwqnCurrentSWBundle); }
    [[nodiscard]] QList<history::Row> rows() const
    {
        QList<history::Row> found;
        (void)Journal::ofDataFolder().read([&](Database &database) -> Result<> {
            found = history::rows(database, *mwqnSelSW).valueOr({});
            return {};
        });
        return found;
    }

    void type(FieldId field, const QString &text) { editor.typed(field, text); }

    /// Does what an author might, with any field. The first texts are read back as they were stored.
    void editAnything(std::mt19937 &random, unsigned textCount)
    {
        static const QStringList texts = {{},
                                          u"a"_s,
                                          u"12"_s,
                                          u"Tool & Die"_s,
                                          u"one\ntwo"_s,
                                          u"😀é"_s,
                                          QString(300, u'y'),
                                          u"1.5"_s,
                                          u"http://x.example/a.zip"_s,
                                          u"a @b.com"_s,
                                          u" a  b "_s,
                                          u"<b>&amp; x"_s,
                                          u"c\r\nd\n"_s,
                                          u"]]>"_s,
                                          QString(QChar(0xd83d)),
                                          u"\xfeffq"_s};
        const FieldId field = padFields[random() % padFields.size()].id;
        switch (padField(field).kind) {
        case FieldKind::Text:
            type(field, texts[qsizetype(random() % qMin(textCount, unsigned(texts.size())))]);
            if (random() % 2 == 0)
                editor.controlTextDidEndEditing(field);
            break;
        case FieldKind::MultiLine:
            type(field, texts[qsizetype(random() % qMin(textCount, unsigned(texts.size())))]);
            break;
        case FieldKind::PopUp:
            editor.form().popUp(field).setIndex(int(random() % 4));
            editor.controlAction(field);
            break;
        case FieldKind::CheckBox:
            editor.form().checkBox(field).setOn(random() % 2 == 0);
            editor.controlAction(field);
            break;
        case FieldKind::CheckList:
            editor.toggleRow(field, int(random() % 9));
            break;
        case FieldKind::Computed:
            break;
        }
    }

    RecordingSheets sheets;
    Editor editor{sheets};
    ManualCalls calls;
    EditHistory edits{editor, calls};
};

} // namespace

TEST_F(EditHistoryTest, FiveHundredEditsAreTakenBackOneByOneAndDoneAgain)
{
    std::mt19937 random(4711); // NOLINT(*-msc51-cpp): the same edits in each run.
    QList<QMap<QString, QByteArray>> states = {files()};
    const auto edit = [&](int count, unsigned textCount) {
        for (int number = 0; number < count; ++number) {
            const qsizetype before = rows().size();
            editAnything(random, textCount);
            calls.pass(2s);
            if (rows().size() > before)
                states.append(files());
        }
    };
    const auto walk = [&](auto move, qsizetype from, qsizetype to, int direction) {
        for (qsizetype at = from; at != to; at += direction) {
            const auto moved = (edits.*move)();
            ASSERT_TRUE(moved) << at << ": " << moved.error().reason;
            ASSERT_FALSE(moved->isEmpty()) << at;
            ASSERT_EQ(files(), states[at]) << at;
        }
    };
    edit(100, 10);
    Journal::ofDataFolder().close();
    open(u"T"_s); // As in another run.
    edit(400, 99);
    walk(&EditHistory::undo, states.size() - 2, -1, -1);
    EXPECT_FALSE(edits.canUndo());
    open(u"T"_s);
    walk(&EditHistory::redo, 1, states.size(), 1);
    EXPECT_FALSE(edits.canRedo());
    EXPECT_EQ(failedExtrasLine(), QString());
}

TEST_F(EditHistoryTest, AStepIsAStretchInOneField)
{
    using enum FieldId;
    type(programName, u"T"_s);
    type(programName, u"Tool"_s);
    EXPECT_TRUE(edits.canUndo());
    EXPECT_FALSE(QFile::exists(inData(u"quillon.sqlite"_s))) << "a keystroke does not wait for the journal";
    calls.pass(1s);
    type(programName, u"Tool 2"_s);
    calls.pass(1s);
    EXPECT_TRUE(edits.isUnderWayIn(programName));
    calls.pass(1s);
    type(programName, u"Tool 3"_s);
    editor.endStep(); // As pasting does.
    type(programName, u"Pasted"_s);
    editor.endStep();
    type(releaseDateDay, u"7"_s);
    editor.controlTextDidEndEditing(releaseDateDay);
    type(authorEmail, u"a @b.com"_s);
    type(authorEmail, {});
    EXPECT_TRUE(AddDeleteImportEdit::createNewListing(u"Other"_s));
    open(u"Other"_s);
    EXPECT_FALSE(edits.canUndo());
    EXPECT_TRUE(title_operations::renameTitle(u"T"_s, u"Renamed"_s));
    open(u"Renamed"_s);

    QStringList found;
    for (const history::Row &row : rows())
        found.prepend(row.field + u": "_s + row.before + u" > "_s + row.after);
    EXPECT_EQ(found, QStringList({u"programName:  > Tool 2"_s, u"programName: Tool 2 > Tool 3"_s,
                                  u"programName: Tool 3 > Pasted"_s, u"releaseDateDay:  > 07"_s}));

    const auto set = restoring::plan(u"Renamed"_s, editor.form(), 1, std::nullopt);
    ASSERT_TRUE(set);
    EXPECT_EQ(set->changes.size(), 2);
    EXPECT_TRUE(edits.apply(*set));
    EXPECT_EQ(editor.form().value(programName), u"Tool 2"_s);
    EXPECT_FALSE(edits.apply(*set)) << "the fields hold other texts by now";
    EXPECT_FALSE(restoring::plan(u"Renamed"_s, editor.form(), 99, std::nullopt));
    EXPECT_TRUE(edits.undo());
    EXPECT_EQ(editor.form().value(programName), u"Pasted"_s);

    editor.form().setValue(programName, u"From elsewhere"_s);
    editor.checkEntriesForErrors();
    (void)edits.undo(); // The day.
    const auto stored = files();
    EXPECT_FALSE(edits.undo()) << "what somebody else has written is not overwritten";
    EXPECT_EQ(files(), stored);
}

TEST_F(EditHistoryTest, AHistoryThatCannotBeReadForAMomentIsNoEmptyOne)
{
    type(FieldId::programName, u"Tool"_s);
    calls.pass(2s);
    open(u"T"_s);
    Journal::ofDataFolder().close();
    {
        const FaultPlan plan(mwqnAppSuppLoc, "open+=EIO create+=EIO");
        EXPECT_FALSE(edits.canUndo());
        EXPECT_TRUE(plan.met());
    }
    EXPECT_TRUE(edits.canUndo());
}

TEST_F(EditHistoryTest, TheFilesAreTheSameWithoutAJournal)
{
    const auto run = [this](const QString &title) {
        EXPECT_TRUE(AddDeleteImportEdit::createNewListing(title));
        open(title);
        std::mt19937 random(12); // NOLINT(*-msc51-cpp): the same edits in each run.
        QList<QMap<QString, QByteArray>> states;
        for (int number = 0; number < 40; ++number) {
            editAnything(random, 99);
            calls.pass(2s);
            states.append(files());
        }
        return states;
    };
    const auto with = run(u"With"_s);
    Journal::ofDataFolder().close();
    ASSERT_TRUE(QFile::remove(inData(u"quillon.sqlite"_s)));
    ASSERT_TRUE(QDir().mkdir(inData(u"quillon.sqlite"_s)));
    EXPECT_EQ(run(u"Without"_s), with);
    EXPECT_TRUE(failedExtrasLine().contains(u"no regular file"_s));
    EXPECT_TRUE(mwqnFailedWrites.isEmpty());
    ASSERT_TRUE(QDir().rmdir(inData(u"quillon.sqlite"_s)));
    type(FieldId::programName, u"Late"_s);
    calls.pass(2s);
    EXPECT_GT(rows().size(), 20) << "what waited comes with the next step";
    EXPECT_EQ(failedExtrasLine(), QString());
}
