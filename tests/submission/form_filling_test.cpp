#include "submission/form_filling.h"
#include "submission/form_memory.h"
#include "submission/submit_window_fixture.h"
#include "support/accessibility.h"
#include "support/tables.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QRegularExpression>

/// What is proposed for the forms of pages, and what becomes of it there.
class FormFillingTest : public SubmitWindowTest
{
protected:
    void start() override
    {
        SubmitWindowTest::start();
        QString pad = u"<XML_DIZ_INFO>"_s;
        for (const PadField &field : padFields)
            pad += u"<%1>%2</%1>"_s.arg(field.element, valueFor(field));
        writeTo(pathIn(u"Mine"_s, title_folder::padFile), pad + u"</XML_DIZ_INFO>"_s);
        for (const TitleValue &value : titleValues(pad.toUtf8()))
            values[value.id] = value;
    }

    /// A value that no other field has.
    static QString valueFor(const PadField &field)
    {
        static const QHash<FieldId, QString> own{
            {FieldId::releaseDateYear, u"2009"_s},       {FieldId::releaseDateMonth, u"07"_s},
            {FieldId::releaseDateDay, u"04"_s},          {FieldId::companyCountry, u"United Kingdom"_s},
            {FieldId::programTypePopUp, u"Shareware"_s}, {FieldId::categoryPopUp, u"Development::Editors"_s}};
        const QString name = field.control.toString();
        return own.contains(field.id)                               ? own[field.id]
               : name.contains(u"URL") || name.contains(u"Website") ? u"http://mine.example/"_s + name
               : name.endsWith(u"Email")                            ? name + u"@mine.example"_s
               : name.contains(u"rice") || name.contains(u"ize")    ? QString::number(100 + int(field.id))
                                                                    : u"My "_s + name;
    }

    std::unique_ptr<FormFilling> looked(const QString &site = {})
    {
        auto filling = std::make_unique<FormFilling>(window().browser(), site);
        bool isDone = false;
        QObject::connect(filling.get(), &FormFilling::looked, filling.get(), [&isDone] { isDone = true; });
        filling->look();
        EXPECT_TRUE(eventually([&] { return isDone; }));
        return filling;
    }
    static void fill(FormFilling &filling)
    {
        bool isDone = !filling.canFill();
        QObject::connect(&filling, &FormFilling::filled, &filling, [&isDone] { isDone = true; });
        filling.fill();
        EXPECT_TRUE(eventually([&] { return isDone; }));
    }
    static QString outcome(const FormFilling &filling, int row)
    {
        return filling.index(row, FormFilling::Outcome).data().toString();
    }
    static void tickAll(FormFilling &filling)
    {
        for (int row = 0; row < filling.rowCount(); ++row)
            filling.setData(filling.index(row, FormFilling::Field), Qt::Checked, Qt::CheckStateRole);
    }

    /// The fields of the page that say what belongs into them: that, what they hold, and what they are
    /// called.
    static QList<QStringList> fieldsOfPage()
    {
        const QVariantList all = ask(uR"((() => {
            const pages = [document, ...[...document.querySelectorAll('iframe')].map(each => each.contentDocument)];
            return pages.flatMap(page => [...page.querySelectorAll('[data-expect]')]).map(each => [
                each.dataset.expect,
                each.localName == 'select' ? (each.selectedIndex > 0 ? each.selectedOptions[0].text : '')
                    : each.isContentEditable ? each.innerText
                    : /checkbox|radio|range|file/.test(each.type) ? '' : each.value.replace('Already here', ''),
                each.name || each.getAttribute('aria-label') || page.getElementById('about')?.textContent || '']);
        })())"_s.replace(u"page.getElementById"_s, u"document.getElementById"_s))
                                     .toList();
        QList<QStringList> fields;
        for (const QVariant &each : all)
            fields.append(each.toStringList());
        return fields;
    }

    struct Score
    {
        int right = 0, wrong = 0, left = 0, surelyWrong = 0;
    };
    /// Judges what the page holds by what it says that belongs there.
    Score score(const FormFilling &filling) const
    {
        QStringList sure;
        for (int row = 0; row < filling.rowCount(); ++row) {
            if (filling.isSure(row))
                sure.append(filling.valueOf(row));
        }
        Score score;
        for (const QStringList &field : fieldsOfPage()) {
            const QString &id = field[0], &held = field[1];
            const TitleValue wanted = values.value(id);
            const bool isRight =
                held == wanted.text || held == wanted.shown() || wanted.text.endsWith(u"::" + held);
            if (held.isEmpty()) {
                score.left += id.isEmpty() ? 0 : 1;
            } else if (isRight && !id.isEmpty()) {
                ++score.right;
            } else {
                ++score.wrong;
                score.surelyWrong += std::ranges::any_of(sure, [&](const QString &each) {
                    return values.value(each).shown() == held || values.value(each).text == held;
                });
            }
        }
        return score;
    }

    QHash<QString, TitleValue> values;
};

TEST_F(FormFillingTest, FormsOfAllMakingsAreFilledAndKnownAgainAfterTheirNamesChanged)
{
    const QRegularExpression names(u"\\b(name|id|for|aria-labelledby)=\"?(\\w+)\"?"_s);
    for (const QStringList &row : table(u"forms"_s)) {
        const QString form = row[0], expected = row[1] + u'|' + row[2], path = u"/form/"_s + form;
        const QByteArray page = sample(u"forms/"_s + form + u".html"_s);
        server.serve(path, {page});
        ASSERT_TRUE(open(path));
        QTest::qWait(form == u"single_page" ? 300 : 0);
        const auto first = looked();
        QList<form_matching::Remembered> confirmed;
        for (const QStringList &field : fieldsOfPage()) {
            for (int each = 0; each < first->rowCount(); ++each) {
                const FieldSigns &signs = first->field(each).signs;
                if (!field[0].isEmpty() && (signs.name.isEmpty() ? signs.label : signs.name) == field[2])
                    confirmed.append({.signs = signs, .value = field[0]});
            }
        }
        ASSERT_TRUE(form_memory::remember(form, confirmed));
        tickAll(*first);
        fill(*first);
        const Score fresh = score(*first);

        QString changed = QString::fromUtf8(page);
        changed.replace(names, u"\\1=\"x\\2y\""_s);
        server.serve(path + u"/changed"_s, {changed.toUtf8()});
        ASSERT_TRUE(open(path + u"/changed"_s));
        QTest::qWait(form == u"single_page" ? 300 : 0);
        const auto again = looked(form);
        fill(*again); // What is sure.
        const Score known = score(*again);

        const QString found = u"%1 %2 %3|%4 %5 %6"_s.arg(fresh.right)
                                  .arg(fresh.wrong)
                                  .arg(fresh.left)
                                  .arg(known.right)
                                  .arg(known.wrong)
                                  .arg(known.left);
        EXPECT_EQ(found, expected) << form;
        EXPECT_EQ(fresh.surelyWrong, 0) << form;
        for (const FormFilling *each : {first.get(), again.get()})
            for (int line = 0; line < each->rowCount() && found != expected; ++line)
                ADD_FAILURE() << each->field(line).caption() << " | " << each->valueOf(line) << " | "
                              << each->index(line, FormFilling::Why).data().toString() << " | "
                              << outcome(*each, line);
    }
}

TEST_F(FormFillingTest, NothingGoesWhereTheAuthorHasNotSeenIt)
{
    const QString name = u"My programName"_s, version = u"My programVersion"_s;
    const QString both = name + u'/' + version;
    const struct
    {
        QString act, first, second, held;
    } cases[] = {
        {u"0"_s, u"Filled"_s, u"Filled"_s, both},
        {u"one.labels[0].firstChild.data = 'Your bank'"_s, u"another one"_s, u"Filled"_s, u'/' + version},
        {u"one.type = 'password'"_s, u"another one"_s, u"Filled"_s, u'/' + version},
        {u"one.value = 'x'"_s, u"holds something"_s, u"Filled"_s, u"x/"_s + version},
        {u"one.readOnly = true"_s, u"takes nothing"_s, u"Filled"_s, u'/' + version},
        {u"one.parentElement.style.opacity = 0"_s, u"hidden"_s, u"Filled"_s, u'/' + version},
        {u"one.style.visibility = 'hidden'"_s, u"hidden"_s, u"Filled"_s, u'/' + version},
        {u"one.style.cssText = 'position: absolute; left: -999px'"_s, u"hidden"_s, u"Filled"_s,
         u'/' + version},
        {u"one.replaceWith(one.cloneNode())"_s, u"no longer there"_s, u"Filled"_s, u'/' + version},
        {u"cover('')"_s, u"lies over"_s, u"lies over"_s, u"/"_s},
        {u"cover('pointer-events: none')"_s, u"lies over"_s, u"lies over"_s, u"/"_s},
        {u"one.onfocus = () => cover('')"_s, u"lies over"_s, u"lies over"_s, u"/"_s},
        {u"one.onfocus = () => two.focus()"_s, u"Filled"_s, u"Filled"_s, both},
        {u"one.oninput = () => two.labels[0].firstChild.data = 'Other'"_s, u"Filled"_s, u"another one"_s,
         name + u'/'},
        {u"one.oninput = () => one.value = 'lie'"_s, u"now holds “lie”"_s, u"Filled"_s, u"lie/"_s + version},
        {u"one.maxLength = 4"_s, u"another one"_s, u"Filled"_s, u'/' + version},
        {u"one.oninput = () => document.forms[0].reset()"_s, u"is empty"_s, u"Filled"_s, u'/' + version},
        {u"Object.defineProperty(HTMLInputElement.prototype, 'value', { get: () => '', set() { "
         u"two.oninput?.() } });"
         "got = ''"_s,
         u"Filled"_s, u"Filled"_s, u"undefined"_s},
        {u"one.oninput = () => navigator.clipboard.readText().then(text => got = text)"_s, u"Filled"_s,
         u"Filled"_s, both},
        {u"location = '/windows.html'"_s, u"gone elsewhere"_s, u"gone elsewhere"_s, {}},
    };
    WebServer other;
    other.serve(u"/frame"_s, {"<label>Company name <input name=company></label>"});
    server.serve(
        u"/hostile"_s,
        {"<title>Hostile</title><form><p><label>Program name <input id=one name=program></label>"
         "<p><label>Version <input id=two name=version></label></form><iframe src='" +
         other.url(u"/frame"_s).toUtf8() +
         "'></iframe><script>got = ''; cover = style => { const over = document.createElement('div');"
         "over.style = 'position: fixed; inset: 0; background: white;' + style;"
         "document.body.append(over); }</script>"});
    QApplication::clipboard()->setText(u"secret"_s);
    for (const auto &each : cases) {
        ASSERT_TRUE(open(u"/hostile"_s));
        const auto filling = looked();
        ASSERT_EQ(filling->rowCount(), 2);
        ASSERT_EQ(filling->tickedRows(), 2);
        ask(each.act + u"; 0"_s);
        if (each.held.isNull()) {
            ASSERT_TRUE(waitForPage(u"Windows"));
        }
        fill(*filling);
        EXPECT_TRUE(outcome(*filling, 0).contains(each.first)) << each.act << ": " << outcome(*filling, 0);
        EXPECT_TRUE(outcome(*filling, 1).contains(each.second)) << each.act << ": " << outcome(*filling, 1);
        if (!each.held.isNull() && each.held != u"undefined") {
            EXPECT_EQ(
                ask(u"document.forms[0].elements[0].value + '/' + document.forms[0].elements[1].value"_s),
                each.held)
                << each.act;
        }
        EXPECT_NE(ask(u"window.got"_s), u"secret"_s);
    }
    EXPECT_EQ(QApplication::clipboard()->text(), u"secret"_s);

    server.serve(u"/many"_s,
                 {"<title>Many</title><script>document.write('<input name=program><br>'.repeat(1e5))"
                  "</script>"});
    ASSERT_TRUE(open(u"/many"_s));
    const auto many = looked();
    EXPECT_GT(many->rowCount(), 0);
    EXPECT_LE(many->rowCount(), 500);
    EXPECT_EQ(many->tickedRows(), 0);
    EXPECT_TRUE(many->summary().contains(u"more than is looked at")) << many->summary();
}

TEST_F(FormFillingTest, TheWindowTypesWhatIsTickedAndSaysWhatBecameOfIt)
{
    server.serve(u"/form/table"_s, {sample(u"forms/table_left.html"_s)});
    ASSERT_TRUE(open(u"/form/table"_s));
    window().findChild<QAction *>(u"fillForm"_s)->trigger();
    auto *fields = visible<QTableView>(u"formFields"_s);
    ASSERT_TRUE(eventually([&] { return fields->model()->rowCount() == 9; }));
    QTest::keyClick(fields, Qt::Key_Space); // Not the program's name.
    fields->setCurrentIndex(fields->model()->index(7, 0));
    auto *value = visible<QComboBox>(u"formValue"_s);
    value->setCurrentIndex(value->findData(u"keywordsView"_s));
    Q_EMIT value->activated(value->currentIndex());
    EXPECT_EQ(accessibilityFaults(*fields->window()), QStringList());
    press(u"fillButton"_s);
    const QLabel *summary = visible<QLabel>(u"formSummary"_s);
    ASSERT_TRUE(eventually([&] { return summary->text().contains(u"8 of 8"); })) << summary->text();
    const QList<QStringList> held = fieldsOfPage();
    EXPECT_EQ(held[0][1], QString());
    EXPECT_EQ(held[1][1], u"My programVersion"_s);
    EXPECT_EQ(held[7][1], u"My keywordsView"_s);
    EXPECT_EQ(form_memory::of(control().sites().selectedSite())->size(), 8);
}
