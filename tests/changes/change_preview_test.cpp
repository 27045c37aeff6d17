#include "changes/change_preview.h"
#include "changes/changes_table.h"
#include "store/add_delete_import_edit.h"
#include "support/temporary_home.h"

#include <QCoreApplication>

class ChangePreviewTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        for (const QString &title : {u"A"_s, u"B"_s, u"C"_s})
            ASSERT_TRUE(AddDeleteImportEdit::createNewListing(title));
    }

    /// Gives companies other names; none of title C's.
    static ChangePlan plan(const QStringList &titles, const QString &name)
    {
        ChangePlan plan{.origin = u"bulk"_s, .label = u"L"_s, .titles = {}};
        change_plans::planEach(plan, titles, [&name](const TitleState &state) {
            const FormValues &values = state.judged.values;
            const QList<Change> changes = {
                {FieldId::companyName, values[size_t(FieldId::companyName)], name},
                {FieldId::companyCityTown, values[size_t(FieldId::companyCityTown)], name}};
            return change_plans::planned(state, state.title == u"C"_s ? QList<Change>() : changes);
        });
        return plan;
    }
    static void planAll(ChangePreview &preview, const QString &name)
    {
        preview.plan([name](const QStringList &titles) { return plan(titles, name); });
        while (preview.isPlanning())
            QCoreApplication::processEvents();
    }
    static QString shown(const ChangePreview &preview)
    {
        QStringList rows;
        for (int row = 0; row < preview.rowCount(); ++row)
            rows.append(preview.index(row, 0).data().toString() + u": "_s +
                        preview.index(row, 1).data().toString());
        return rows.join(u'|');
    }
    int m_count = 0;
    QCoreApplication m_application{m_count, nullptr}; // Planning goes on between events.

    static QByteArray padOf(const QString &title)
    {
        return contents(inData(title + u".qndata/data.qnxml"_s));
    }
};

TEST_F(ChangePreviewTest, WhatIsTickedIsAppliedAndTakenBack)
{
    ChangePreview preview(ChangePreview::Rows::Changing, {u"A"_s, u"B"_s, u"C"_s}, {u"A"_s, u"B"_s, u"C"_s});
    planAll(preview, u"Acme"_s);
    EXPECT_EQ(shown(preview), u"A: 2 changes, 2 errors go|B: 2 changes, 2 errors go"_s);
    ChangesTable changes(preview);
    changes.show(0);
    ASSERT_TRUE(changes.setData(changes.index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(preview.index(0, 1).data(), u"1 change, 1 error goes"_s);
    EXPECT_EQ(changes.index(1, 0).data(Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(consequencesOf(preview.row(0).chosen),
              QStringList(u"Mended: The company name is too short."_s));
    ASSERT_TRUE(preview.setData(preview.index(1, 0), Qt::Unchecked, Qt::CheckStateRole));

    EXPECT_EQ(preview.apply(nullptr).valueOr({}), u"1 title was changed."_s);
    EXPECT_TRUE(padOf(u"A"_s).contains("<Company_Name>Acme<"));
    EXPECT_FALSE(padOf(u"A"_s).contains("<City_Town>Acme<") || padOf(u"B"_s).contains("Acme"));
    EXPECT_EQ(preview.undo(nullptr).valueOr({}), u"1 title was brought back to what it was."_s);
    EXPECT_FALSE(padOf(u"A"_s).contains("Acme"));

    // What differs meanwhile is told, and nothing is changed.
    planAll(preview, u"Acme"_s);
    put(inData(u"A.qndata/data.qnxml"_s), padOf(u"A"_s).replace("<Company_Name>", "<Company_Name>Other"));
    preview.setTicked(1, true);
    EXPECT_EQ(preview.apply(nullptr).error().reason, u"A: it holds another text by now: Company_Name"_s);
    EXPECT_FALSE(padOf(u"B"_s).contains("Acme"));
}

/// A release is for the titles that are ticked, and ticking another one plans that one only.
TEST_F(ChangePreviewTest, OfAllTitlesOnlyTickedOnesArePlanned)
{
    ChangePreview preview(ChangePreview::Rows::All, {u"A"_s, u"B"_s, u"C"_s}, {u"B"_s});
    planAll(preview, u"Acme"_s);
    EXPECT_EQ(shown(preview), u"A: |B: 2 changes, 2 errors go|C: "_s);
    preview.setTicked(2, true);
    while (preview.isPlanning())
        QCoreApplication::processEvents();
    EXPECT_EQ(shown(preview), u"A: |B: 2 changes, 2 errors go|C: no changes"_s);
    ASSERT_TRUE(QFile::remove(inData(u"A.qndata/data.qnxml"_s)));
    preview.setTicked(0, true);
    planAll(preview, u"a"_s);
    EXPECT_TRUE(shown(preview).startsWith(u"A: cannot be read: ")) << shown(preview);
    EXPECT_EQ(preview.tickedCount(), 1);
}
