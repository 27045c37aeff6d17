#include "changes/bulk_change.h"
#include "changes/change_plan.h"
#include "changes/edit_history.h"
#include "changes/fixes.h"
#include "changes/release_plan.h"
#include "changes/taking_back.h"
#include "changes/text_cutting.h"
#include "changes/unfinished_sets.h"
#include "editor/editor_session.h"
#include "journal/journal.h"
#include "journal/set_log.h"
#include "overview/title_operations.h"
#include "platform/notifications.h"
#include "store/title_folder.h"
#include "support/kills.h"
#include "support/recorders.h"
#include "support/temporary_home.h"
#include "support/valid_form.h"

namespace {

struct ChangePlanTest : TemporaryDataFolder
{
    void TearDown() override
    {
        Journal::ofDataFolder().close();
        TemporaryDataFolder::TearDown();
    }
    static QMap<QString, QByteArray> files()
    {
        QMap<QString, QByteArray> all = tree(mwqnAppSuppLoc);
        all.remove(u"quillon.lock"_s);
        return all;
    }
    /// Opens @p titles as a window would, so that their files are as the check leaves them. How many are
    /// valid, and how many errors there are.
    static std::pair<qsizetype, qsizetype> checked(const QStringList &titles)
    {
        EditorSession session;
        std::pair<qsizetype, qsizetype> count;
        for (const QString &title : titles) {
            EXPECT_TRUE(session.open(title)) << title;
            session.editor().checkEntriesForErrors();
            count.first += session.editor().errors().empty() ? 1 : 0;
            count.second += qsizetype(session.editor().errors().size());
        }
        return count;
    }
    static void make(const QString &title)
    {
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(title));
        checked({title});
    }
    static ChangePlan release(const QStringList &titles, const QString &version = u"2.0"_s)
    {
        return release_plan::plan(
            {.version = version, .date = QDate(2026, 3, 4), .file = {{u"a.zip"_s, 5'000'000}}}, titles);
    }
    static ChangePlan wayBack() { return taking_back::plan().valueOr({}); }
};

} // namespace

TEST_F(ChangePlanTest, WhatIsAppliedToRealFilesIsTakenBackByteForByte)
{
    QDirIterator pads(QStringLiteral(QUILLON_REAL_PADS), {u"*.xml"_s}, QDir::Files);
    if (!pads.hasNext())
        GTEST_SKIP() << "no PAD files";
    QStringList titles;
    while (pads.hasNext()) {
        const QString path = pads.next();
        auto import = title_operations::importPadFile(path);
        if (import.outcome == title_operations::Import::NeedsName)
            import = title_operations::importPadFile(path, pads.fileInfo().completeBaseName());
        if (import.outcome == title_operations::Import::Imported)
            titles.append(import.name);
    }
    const auto [valid, errors] = checked(titles);
    const QMap<QString, QByteArray> before = files();
    ASSERT_EQ(titles.size(), 96);
    FieldAssignment city{FieldId::companyCityTown, u"Springfield"_s};
    for (const ChangePlan &plan :
         {fixes::plan(titles), release(titles), bulk_change::plan({.where = {}, .set = {city}}, titles)}) {
        SCOPED_TRACE(plan.label);
        ASSERT_TRUE(plan.failures.isEmpty());
        ASSERT_EQ(files(), before) << "planning stores nothing";
        const auto applied = change_plans::apply(plan);
        ASSERT_TRUE(applied) << applied.error().reason;
        qsizetype judged = errors;
        for (const TitlePlan &title : plan.titles)
            judged +=
                qsizetype(title.judgement.appearing.size()) - qsizetype(title.judgement.vanishing.size());
        const auto after = checked(titles);
        EXPECT_LE(after.second, errors);
        if (plan.origin == u"fix") {
            RecordProperty("valid", QString::number(after.first).toStdString());
            EXPECT_EQ(after.second, judged);
            EXPECT_GE(after.first, valid + 23);
            EXPECT_LE(after.second, errors - 201);
            EXPECT_TRUE(fixes::plan(titles).titles.isEmpty()) << "once is enough";
        }
        ASSERT_NE(files(), before);
        const auto undone = change_plans::apply(wayBack());
        ASSERT_TRUE(undone) << undone.error().reason;
        ASSERT_EQ(files(), before);
    }
}

TEST_F(ChangePlanTest, AKillLeavesEachTitleBeforeOrAfterAndIsToldOfAtTheNextStart)
{
    const QStringList titles = {u"A"_s, u"B"_s};
    for (const QString &title : titles)
        make(title);
    const QMap<QString, QByteArray> before = files();
    ASSERT_TRUE(change_plans::apply(release(titles)));
    const QMap<QString, QByteArray> after = files();
    killedAtEachCall(
        mwqnAppSuppLoc,
        [] {
            ASSERT_TRUE(change_plans::apply(wayBack()));
            Journal::ofDataFolder().close();
        },
        [&titles] { (void)change_plans::apply(release(titles)); },
        [&] {
            AddDeleteImportEdit::removeUnfinished();
            const PostedNotifications posted{notification::mwqnOvLSlst};
            const QList<Error> told = unfinished_sets::settle();
            const QMap<QString, QByteArray> now = files();
            QStringList made;
            for (const QString &path : after.keys()) {
                const bool isMade = now[path] == after[path];
                EXPECT_TRUE(isMade || now[path] == before[path]) << path;
                if (isMade && path.endsWith(title_folder::padFile))
                    made.append(path.section(u'.', 0, 0));
                const QString pad = path.section(u'/', 0, 0) + u"/data.qnxml"_s;
                EXPECT_TRUE(after[path] == before[path] || isMade == (now[pad] == after[pad])) << path;
            }
            const bool isPartial = !made.isEmpty() && made != titles;
            EXPECT_TRUE(!isPartial || (told.size() == 1 && posted.names.size() == 1));
            EXPECT_TRUE(!isPartial || told.value(0).reason.contains(u"done in "_s + made.join(u", "_s)));
            EXPECT_TRUE(unfinished_sets::settle().isEmpty());
            // What was done can be taken back, and the rest made up for.
            EXPECT_EQ(release(titles).titles.size(), titles.size() - made.size());
            EXPECT_EQ(wayBack().titles.size(), made.size());
            EXPECT_TRUE(change_plans::apply(wayBack()));
            EXPECT_EQ(files(), before);
            EXPECT_TRUE(change_plans::apply(release(titles)));
            EXPECT_EQ(files(), after);
        });
}

TEST_F(ChangePlanTest, WhatAKillKeptFromBeingChangedStaysAsItCame)
{
    const QByteArray came =
        "<XML_DIZ_INFO><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO><Program_Version>1.0"
        "</Program_Version><Other>of another program</Other></XML_DIZ_INFO>";
    const QStringList titles = {u"A"_s, u"B"_s};
    killedAtEachCall(
        mwqnAppSuppLoc,
        [&] {
            for (const QString &title : titles)
                ASSERT_TRUE(AddDeleteImportEdit::importExistingFile(title, PadDocument(came)));
            Journal::ofDataFolder().close();
        },
        [&] { (void)change_plans::apply(release(titles)); },
        [&] {
            AddDeleteImportEdit::removeUnfinished();
            QString told;
            {
                const FaultPlan plan(inData(u"B.qndata"_s), "open+=EIO");
                told = unfinished_sets::settle().value(0).reason;
            }
            const QString later = unfinished_sets::settle().value(0).reason;
            const auto pad = [](const QString &title) {
                return contents(inData(title + u".qndata/data.qnxml"));
            };
            const bool isHalf = pad(u"A"_s) != came && pad(u"B"_s) == came;
            EXPECT_TRUE(!isHalf || (told.contains(u"unknown of B"_s) && later.contains(u"not done in B"_s)))
                << told << later;
            for (const QString &title : titles) {
                const QByteArray now = pad(title);
                EXPECT_TRUE(now == came || now.contains("<Program_Version>2.0<")) << title << now;
            }
        });
}

TEST_F(ChangePlanTest, WhatCouldNotBeStoredIsToldAndLeavesTheHistory)
{
    const QStringList titles = {u"A"_s, u"B"_s};
    for (const QString &title : titles)
        make(title);
    const auto unfinished = [] {
        return Journal::ofDataFolder().find(set_log::unfinished).valueOr({}).size();
    };
    const QMap<QString, QByteArray> before = files();
    for (int file = 1; file <= 3; ++file) {
        const bool isPadFile = file == 2; // Between the errors and the summary.
        const ChangePlan plan = release(titles);
        std::optional<FaultPlan> fault(std::in_place, inData(u"B.qndata"_s),
                                       failing("create", file, "ENOSPC"));
        const auto applied = change_plans::apply(plan);
        EXPECT_TRUE(fault->met());
        fault.reset();
        ASSERT_TRUE(applied && applied->titles.size() == 2);
        EXPECT_TRUE(applied->titles[0].stored && !applied->titles[1].stored);
        EXPECT_EQ(applied->titles[1].isChanged, !isPadFile) << file;
        EXPECT_EQ(wayBack().titles.size(), isPadFile ? 1 : 2) << file;
        EXPECT_EQ(unfinished(), isPadFile ? 0 : 1) << file;
        EXPECT_TRUE(unfinished_sets::settle().isEmpty());
        EXPECT_EQ(unfinished(), 0);
        ASSERT_TRUE(change_plans::apply(wayBack()));
        checked(titles);
        EXPECT_EQ(files(), before) << file;
    }
}

TEST_F(ChangePlanTest, ATitleIsReadWithoutWhatAnotherHolds)
{
    const auto read = [](const QString &title, const QByteArray &element) {
        EXPECT_TRUE(AddDeleteImportEdit::importExistingFile(
            title, PadDocument("<MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO>" + element)));
        return change_plans::stateOf(title)->judged.values[size_t(FieldId::eula)];
    };
    EXPECT_EQ(read(u"A"_s, "<EULA>Free</EULA>"), u"Free"_s);
    EXPECT_EQ(read(u"B"_s, "<Program_Name>B</Program_Name>"), QString());
}

TEST_F(ChangePlanTest, NothingIsAppliedAnywhereWhenOneFieldHasChanged)
{
    make(u"A"_s);
    make(u"B"_s);
    RecordingSheets sheets;
    Editor editor{sheets};
    ManualCalls calls;
    EditHistory edits{editor, calls};
    selectTitle(u"A"_s);
    editor.loadPADData();
    editor.checkEntriesForErrors();
    const ChangePlan plan = release({u"A"_s, u"B"_s});
    editor.typed(FieldId::programVersion, u"1"_s);
    QMap<QString, QByteArray> before = files();
    const auto refused = change_plans::apply(plan, &edits);
    ASSERT_TRUE(refused.isError(Error::Kind::Refused));
    EXPECT_TRUE(refused.error().reason.contains(u"A: it holds another text by now: Program_Version"_s));
    EXPECT_EQ(files(), before);

    // The open title is changed in its editor, and both ways back know the step.
    ASSERT_TRUE(change_plans::apply(release({u"B"_s, u"A"_s}), &edits));
    EXPECT_EQ(mwqnSelSW, u"A"_s);
    EXPECT_EQ(editor.form().value(FieldId::programVersion), u"2.0"_s);
    ASSERT_TRUE(edits.undo());
    EXPECT_EQ(editor.form().value(FieldId::programVersion), u"1"_s);
    ChangePlan rest = wayBack();
    ASSERT_EQ(rest.titles.size(), 1);
    EXPECT_EQ(rest.titles.first().title, u"B"_s);
    ASSERT_TRUE(change_plans::apply(rest, &edits));
    EXPECT_EQ(files(), before);
    ASSERT_TRUE(edits.redo());
    ASSERT_TRUE(change_plans::apply(taking_back::plan(1).valueOr({}), &edits));
    EXPECT_EQ(files(), before);

    // A set that is taken back from below another step leaves that one on top.
    ASSERT_TRUE(change_plans::apply(release({u"A"_s}), &edits));
    editor.typed(FieldId::eula, u"Free"_s);
    ASSERT_TRUE(change_plans::apply(wayBack(), &edits));
    ASSERT_TRUE(edits.undo());
    EXPECT_EQ(files(), before);

    // Without a journal there would be no way back.
    Journal::ofDataFolder().close();
    ASSERT_TRUE(QFile::remove(inData(u"quillon.sqlite"_s)) && QDir().mkdir(inData(u"quillon.sqlite"_s)));
    before = files();
    EXPECT_FALSE(change_plans::apply(release({u"A"_s, u"B"_s}), &edits));
    EXPECT_EQ(files(), before);
}

TEST_F(ChangePlanTest, TextsAreCutWhereAReaderWouldStop)
{
    using text_cutting::cut;
    EXPECT_EQ(cut(u"One two. Three four five."_s, 20), u"One two. Three four"_s);
    EXPECT_EQ(cut(u"One two three. Four five."_s, 20), u"One two three."_s);
    EXPECT_EQ(cut(u"See e.g. Figure seven here"_s, 14), u"See e.g."_s);
    EXPECT_EQ(cut(u"Tools - fast, and more"_s, 14), u"Tools - fast"_s);
    EXPECT_EQ(cut(u"This is R&amp; D"_s, 14), u"This is R"_s);
    EXPECT_EQ(cut(u"一二三。四五六七"_s, 6), u"一二三。"_s);
    EXPECT_EQ(cut(of(5) + u"😀"_s + of(5), 6), QString());
    EXPECT_EQ(text_cutting::keywords(u"a, b, A ,ccc, d"_s, 7), u"a, b, d"_s);
}
