#include "editor/editor.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/error_tracking.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "support/faults.h"
#include "support/full_disk.h"
#include "support/recorders.h"
#include "support/temporary_home.h"
#include "support/valid_form.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <random>

using enum FieldId;

/// An editor with a new title loaded.
class EditorTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"Title"_s));
        selectTitle(u"Title"_s);
        editor.awakeFromNib();
        load();
    }

    static void load() { NotificationCenter::defaultCenter().post(notification::mwqnLPDIed); }
    static QString path(QStringView file) { return inData(u"Title.qndata/"_s + file.toString()); }
    static QByteArray stored(QStringView file) { return contents(path(file)); }
    static Summary summary() { return summary_file::parse(stored(title_folder::summaryFile)); }
    static StringDictionary log() { return *ErrorTracking::returnErrorDictionary(); }

    /// Tells a file that was replaced from one that was left alone.
    static QList<ino_t> fileNumbers()
    {
        QList<ino_t> numbers;
        for (const QStringView file :
             {title_folder::errorLog, title_folder::padFile, title_folder::summaryFile})
            numbers.append(fileNumber(path(file)));
        return numbers;
    }

    RecordingSheets sheets;
    Editor editor{sheets};
};

TEST_F(EditorTest, StoresEveryKeystrokeWithItsErrors)
{
    fillValidly(editor.form());
    int checks = 0;
    QObject::connect(&editor, &Editor::checked, &editor, [&checks] { ++checks; });
    editor.typed(companyName, u"A"_s);
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(log(), (StringDictionary{{u"companyName"_s, u"The company name is too short."_s}}));
    EXPECT_EQ(editor.errors(), log());
    EXPECT_EQ(summary().validated, u"0"_s);
    EXPECT_TRUE(stored(title_folder::padFile).contains("<Company_Name>A</Company_Name>"));
    EXPECT_EQ(editor.form().text(companyName).redRuns(), (QList<ColourRun>{{0, 1}}));

    editor.typed(companyName, u"A & B"_s);
    editor.controlTextDidEndEditing(companyName);
    EXPECT_FALSE(editor.form().text(companyName).isEditing());
    EXPECT_TRUE(log().empty());
    const Summary now = summary();
    const QList<std::optional<QString>> values = {now.version, now.releaseDate, now.operatingSystems,
                                                  now.validated};
    EXPECT_EQ(values, (QList<std::optional<QString>>{u"1.0"_s, u"2009-03-05"_s, u"Android"_s, u"1"_s}));
    EXPECT_TRUE(stored(title_folder::summaryFile).startsWith("<QUILLON_SOFTWARE_INFORMATION>\n\t<OVERVIEW_"));

    const QList<ino_t> before = fileNumbers();
    editor.checkEntriesForErrors();
    EXPECT_EQ(fileNumbers(), before) << "nothing has changed";
    editor.typed(eula, u"Another"_s);
    QList<ino_t> after = fileNumbers();
    EXPECT_NE(after[1], before[1]);
    after[1] = before[1];
    EXPECT_EQ(after, before) << "only the PAD file has changed";
}

TEST_F(EditorTest, KeepsSubmissionMarksAndMendsASummaryWithoutFlag)
{
    put(path(title_folder::summaryFile), "<Q><QN_SITES>A & B,C,</QN_SITES><QN_VERSION>1,2<QN_VERSION></Q>");
    editor.form().text(releaseDateDay).setText(u"1"_s);
    editor.checkEntriesForErrors();
    EXPECT_TRUE(stored(title_folder::summaryFile)
                    .contains("<OTS_VALIDATED><OTS_VALIDATED>0</OTS_VALIDATED></OTS_VALIDATED>"));
    EXPECT_EQ(summary().sites, u"A & B,C,"_s);
    EXPECT_EQ(summary().versions, u"1,2"_s);
    EXPECT_EQ(summary().releaseDate, QString()) << "a date needs all three parts";
    editor.checkEntriesForErrors();
    EXPECT_TRUE(stored(title_folder::summaryFile).contains("\t<OTS_VALIDATED>0</OTS_VALIDATED>\n"));
}

TEST_F(EditorTest, AClickedRowIsStoredAtItsPlaceInTheList)
{
    for (const int row : {2, 0, 1, 1, -1, 139})
        editor.toggleRow(languageTable, row);
    EXPECT_TRUE(
        stored(title_folder::padFile).contains("<Program_Language>Abkhazian,Afrikaans</Program_Language>"));
    EXPECT_EQ(log().count(u"languageTable"_s), 0U);
}

TEST_F(EditorTest, LoadsAndChecksWhenAsked)
{
    editor.typed(companyStateCounty, u"Kent"_s);
    put(path(title_folder::padFile), "<XML_DIZ_INFO><Company_Name>X</Company_Name></XML_DIZ_INFO>");
    load();
    EXPECT_EQ(editor.form().value(companyName), u"X"_s);
    EXPECT_EQ(editor.form().value(companyStateCounty), u"Kent"_s) << "what the file lacks stays";
    EXPECT_EQ(editor.form().control(companyStateCounty).hint(), QString())
        << "its length is not that of what was typed";
    NotificationCenter::defaultCenter().post(notification::mwqnEdChFEr);
    EXPECT_EQ(log().at(u"companyName"_s), u"The company name is too short."_s);
    EXPECT_EQ(stored(title_folder::padFile), pad_writer::document(editor.form()));
}

TEST_F(EditorTest, TouchesNoFileWithoutATitle)
{
    clearSelectedTitle();
    const QList<ino_t> before = fileNumbers();
    editor.typed(authorEmail, u"none"_s);
    editor.createGeneralFileData();
    editor.createPADFileData();
    EXPECT_EQ(editor.form().control(authorEmail).caption().colour(), Colour::Red);
    EXPECT_EQ(fileNumbers(), before);
    EXPECT_TRUE(mwqnFailedWrites.isEmpty());
}

TEST_F(EditorTest, DoesNotMakeALogThatIsMissingOrUnreadable)
{
    for (const bool removed : {true, false}) {
        removed ? QFile::remove(path(title_folder::errorLog)) : put(path(title_folder::errorLog), "<plist>");
        editor.typed(companyName, u"A"_s);
        EXPECT_EQ(stored(title_folder::errorLog), removed ? "(no such file)" : "<plist>");
        EXPECT_EQ(editor.errors().at(u"companyName"_s), u"The company name is too short."_s);
        EXPECT_EQ(summary().validated, u"1"_s);
    }
}

TEST_F(EditorTest, AFullDiskLeavesTheOldFilesWhole)
{
    fillValidly(editor.form());
    editor.checkEntriesForErrors();
    const QByteArray before = stored(title_folder::errorLog) + stored(title_folder::padFile);
    {
        const FullDisk full(1);
        editor.typed(companyName, u"A"_s);
    }
    EXPECT_EQ(mwqnFailedWrites.size(), 3);
    EXPECT_EQ(stored(title_folder::errorLog) + stored(title_folder::padFile), before);
    editor.typed(companyName, u"Smith & Sons"_s);
    EXPECT_TRUE(mwqnFailedWrites.isEmpty()) << "the log is as it should be again, without a write";
}

TEST_F(EditorTest, APageTakesTheKeyboardAtItsFirstField)
{
    EXPECT_EQ(editor.didSelectTabViewItem(u"Web Information"), appInfoURL);
    EXPECT_EQ(editor.didSelectTabViewItem(u"Program Descriptions"), keywordsView);
    EXPECT_EQ(editor.didSelectTabViewItem(u"anything else"), distributionPermissions);
}

TEST_F(EditorTest, FindsEveryErrorOfAFileThatBreaksEveryRule)
{
    PadForm form;
    for (const PadField &field : padFields) {
        if (field.kind == FieldKind::Text || field.kind == FieldKind::MultiLine)
            form.text(field.id).setText(QString(20001, u'9'));
    }
    for (const FieldId empty : {releaseDateDay, releaseDateMonth, releaseDateYear, sizeInBytes})
        form.text(empty).setText({});
    form.popUp(expireBasePopUp).setIndex(1);
    form.text(otherPrice).setText(u"9"_s);
    put(path(title_folder::padFile), pad_writer::document(form));
    load();
    editor.checkEntriesForErrors();
    int onPages = 0;
    for (const EditorPage &page : editorPages)
        onPages += editor.errorCount(page);
    // All but the two sizes, the currency and the check box, which have no error of their own.
    EXPECT_EQ(log().size(), size_t(fieldCount - 4));
    EXPECT_EQ(onPages, fieldCount - 4);
}

TEST_F(EditorTest, TakesAnyText)
{
    const QString texts[] = {of(1'000'000) + u"!@host.com"_s,
                             of(1'000'000, u'.'),
                             u"a\u0000b\u0001\u001B\uFFFF"_s,
                             QString(QChar(0xDC00)) + QChar(0xD800),
                             u"\u202E\u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627"_s,
                             u"\U0001F469\u200D\U0001F4BB</EULA><![CDATA[&#0;<"_s};
    for (const QString &text : texts) {
        for (const FieldId field : {companyName, companyCountry, authorEmail, generalPhone, programVersion,
                                    iconURL, expireDateDay, eula}) {
            editor.typed(field, text);
            if (field != eula)
                editor.controlTextDidEndEditing(field);
        }
        EXPECT_EQ(stored(title_folder::padFile), pad_writer::document(editor.form()));
        load();
        editor.checkEntriesForErrors();
        EXPECT_EQ(summary().validated, u"0"_s);
    }
    EXPECT_TRUE(mwqnFailedWrites.isEmpty());
}

/// Does what an author might, at random.
static void act(Editor &editor, std::mt19937 &random)
{
    const auto upTo = [&random](qsizetype largest) { return int(random() % unsigned(largest + 1)); };
    const PadField &field = padFields[size_t(upTo(fieldCount - 1))];
    const QStringList pieces = {u"x"_s,      u"7"_s,         u"2009"_s,       u" & "_s,
                                u"&"_s,      u"@host.com"_s, u".png"_s,       u"http://"_s,
                                u"\u00FC"_s, u"\u05E9"_s,    u"\U0001F600"_s, u"\n"_s};
    QString text = upTo(5) == 0 ? QString() : pieces[upTo(2)];
    for (int count = text.isEmpty() ? 0 : upTo(60); count > 0; --count)
        text += pieces[upTo(field.kind == FieldKind::MultiLine ? 11 : 10)];
    switch (field.kind) {
    case FieldKind::Text:
    case FieldKind::MultiLine:
        editor.typed(field.id, text);
        if (field.kind == FieldKind::Text && upTo(1) == 0)
            editor.controlTextDidEndEditing(field.id);
        break;
    case FieldKind::PopUp:
        editor.form().popUp(field.id).setIndex(upTo(editor.form().popUp(field.id).items().size()) - 1);
        editor.controlAction(field.id);
        break;
    case FieldKind::CheckBox:
        editor.form().checkBox(field.id).setOn(upTo(1) == 0);
        editor.controlAction(field.id);
        break;
    case FieldKind::CheckList:
        editor.toggleRow(field.id, upTo(32));
        break;
    case FieldKind::Computed:
        editor.checkEntriesForErrors();
        break;
    }
}

TEST_F(EditorTest, WhatIsStoredIsWhatIsShown)
{
    for (const unsigned seed : {1U, 2U, 3U}) {
        std::mt19937 random(seed);
        for (int action = 0; action < 40; ++action) {
            act(editor, random);
            PadForm reloaded;
            loadPADData(stored(title_folder::padFile), reloaded);
            for (const PadField &field : padFields)
                ASSERT_EQ(reloaded.value(field.id), editor.form().value(field.id)) << seed << ' ' << action;
            ErrorPass expected;
            field_rules::checkEntries(reloaded, expected);
            StringDictionary recorded = log();
            for (const FieldId part : {releaseDateDay, releaseDateMonth, releaseDateYear}) {
                if (!editor.form().value(part).isEmpty()) // Out of range keeps whatever was recorded before.
                    recorded.erase(padField(part).control.toString());
            }
            ASSERT_EQ(recorded, expected.errors()) << seed << ' ' << action;
            ASSERT_EQ(summary().validated, log().empty() ? u"1"_s : u"0"_s);
            ASSERT_EQ(summary().operatingSystems, editor.form().value(osTable));
        }
    }
}

TEST_F(EditorTest, ADamagedPadFileNeitherTakesAnotherTitlesValuesNorIsLost)
{
    editor.typed(companyName, u"First title's company"_s);
    ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"Other"_s));
    const QString other = inData(u"Other.qndata/data.qnxml"_s);
    const QList<QByteArray> damages = {QByteArray("\x00\xff\x01 garbage", 11), {}, "<other><xml/></other>"};
    for (const QByteArray &damage : damages) {
        put(other, damage);
        selectTitle(u"Other"_s);
        load();
        editor.checkEntriesForErrors();
        EXPECT_EQ(editor.form().value(companyName), QString());
        EXPECT_FALSE(contents(other).contains("First title"));
        EXPECT_TRUE(damage.isEmpty() || contents(other + u".unreadable"_s) == damage ||
                    contents(other + u".unreadable-2"_s) == damage);
    }
}

TEST_F(EditorTest, ReplacesWhatItCannotReadOnlyOnceThatIsKept)
{
    const QByteArray damage(50'000, '?');
    const QByteArray summaryDamage = "<QN_SITES A,B</QN_SITES>";
    put(path(title_folder::padFile), damage);
    put(path(title_folder::summaryFile), summaryDamage);
    load();
    {
        const FullDisk full(20'000); // There is room for a new PAD file, but not for the copy.
        editor.checkEntriesForErrors();
    }
    EXPECT_EQ(stored(title_folder::padFile), damage);
    EXPECT_FALSE(mwqnFailedWrites.isEmpty());
    editor.checkEntriesForErrors();
    EXPECT_EQ(stored(title_folder::padFile), pad_writer::document(editor.form()));
    EXPECT_EQ(stored(u"data.qnxml.unreadable"), damage);
    EXPECT_EQ(stored(u"general.qnxmld.unreadable"), summaryDamage);
    EXPECT_EQ(summary().version, QString());
    EXPECT_TRUE(mwqnFailedWrites.isEmpty());
}

TEST_F(EditorTest, NothingIsStoredForATitleUntilItCouldBeRead)
{
    editor.typed(companyName, u"Acme"_s);
    const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
    const QString padFile = path(title_folder::padFile);
    {
        const FaultPlan plan(padFile, "open=EACCES");
        load();
        EXPECT_TRUE(plan.met());
    }
    for (int letter = 0; letter < 2; ++letter)
        editor.typed(companyName, u"B"_s);
    editor.createPADFileData();
    editor.createGeneralFileData();
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);
    EXPECT_EQ(mwqnFailedWrites.value(padFile).kind, Error::Kind::Unreadable);
    EXPECT_FALSE(editor.loaded());

    load();
    editor.checkEntriesForErrors();
    EXPECT_EQ(editor.form().value(companyName), u"Acme"_s);
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);
    EXPECT_TRUE(mwqnFailedWrites.isEmpty() && editor.loaded());
}

TEST_F(EditorTest, NoReadThatFailsForAMomentLosesAnything)
{
    fillValidly(editor.form());
    editor.form().text(companyName).setText({});
    ASSERT_TRUE(put(path(title_folder::summaryFile), "<QN_SITES>A</QN_SITES><QN_VERSION>1</QN_VERSION>"));
    editor.form().text(releaseDateDay).setText(u"99"_s); // Such a day keeps what was recorded of it.
    ASSERT_TRUE(AddDeleteImportEdit::writeErrors({{u"releaseDateDay"_s, u"recorded"_s}}));
    editor.checkEntriesForErrors();
    ASSERT_EQ(log().count(u"releaseDateDay"_s), 1U);
    const StringDictionary errors = log();
    const QString address = editor.form().value(primaryDownloadURL);
    bool isMet = true;
    for (int call = 1; isMet; ++call) {
        const QByteArray rules = failing("reading", call);
        {
            const FaultPlan plan(mwqnAppSuppLoc, rules.constData());
            load();
            editor.typed(programName, u"Name %1"_s.arg(call));
            isMet = plan.met();
        }
        editor.typed(programVersion, u"2.%1"_s.arg(call));
        load();
        editor.checkEntriesForErrors();
        EXPECT_EQ(editor.form().value(primaryDownloadURL), address) << rules.constData();
        EXPECT_EQ(summary().sites, u"A"_s) << rules.constData();
        EXPECT_EQ(log(), errors) << rules.constData();
        EXPECT_EQ(summary().validated, u"0"_s) << rules.constData();
        EXPECT_TRUE(mwqnFailedWrites.isEmpty()) << rules.constData();
        EXPECT_EQ(names(inData(u"Title.qndata"_s)).size(), 3) << rules.constData();
    }
}
