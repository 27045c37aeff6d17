#include "editor/editor_view_fixture.h"
#include "support/accessibility.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

/// How far apart two colours are in lightness, from 1 (not at all) to 21.
static double contrast(const QColor &one, const QColor &other)
{
    const auto luminance = [](const QColor &colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

TEST_F(EditorViewTest, CheckListsAreWorkedByKeysAlone)
{
    for (const FieldId field : {osTable, languageTable}) {
        const QString name = padField(field).control.toString();
        SCOPED_TRACE(name.toStdString());
        const QStringList entries = editor.form().checkList(field).entries();
        auto *list = widget<QListView>(field);
        auto *filter = view->findChild<QLineEdit *>(name + u"Filter"_s);
        QTest::keyClick(list, Qt::Key_Backtab);
        ASSERT_EQ(QApplication::focusWidget(), filter);
        QTest::keyClick(filter, Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), list);
        QTest::keyClick(list, Qt::Key_Space);
        EXPECT_EQ(stored(field), entries.first()) << "the list begins at its first row";
        QTest::keyClick(list, Qt::Key_Space);
        EXPECT_EQ(stored(field), QString());
        QTest::keyClick(list, Qt::Key_Space);

        list->setCurrentIndex(list->model()->index(5, 0));
        QTest::keyClick(list, Qt::Key_Backtab);
        QTest::keyClicks(filter, u"s"_s);
        QTest::keyClick(filter, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Space);
        const QString found = list->model()->index(0, 0).data().toString();
        ASSERT_NE(found, entries.first());
        EXPECT_EQ(stored(field), entries.first() + u',' + found) << "the first of what was found";
    }
}

TEST_F(EditorViewTest, UndoAndRedoGoThroughWhatWasFiltered)
{
    const std::tuple<FieldId, QString, QString> typings[] = {{companyCountry, u"Ger5many"_s, u"Germany"_s},
                                                             {companyCountry, u"12Chad34"_s, u"Chad"_s},
                                                             {releaseDateDay, u"1234"_s, u"12"_s},
                                                             {programVersion, u"1.0$b"_s, u"1.0b"_s}};
    for (const auto &[id, keys, text] : typings) {
        FieldLineEdit *field = line(id);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, keys);
        ASSERT_EQ(field->text(), text);
        const auto goThrough = [field, id = id](auto move, const QString &end) {
            for (int step = 0; step < 9 && field->text() != end; ++step) {
                const QString before = field->text();
                move();
                EXPECT_NE(field->text(), before) << "every step shows";
                EXPECT_EQ(field->text(), stored(id)) << "and is stored";
            }
            EXPECT_EQ(field->text(), end);
        };
        goThrough([&] { QTest::keySequence(field, QKeySequence::Undo); }, {});
        goThrough([&] { QTest::keySequence(field, QKeySequence::Redo); }, text);
        goThrough(
            [&] {
                const std::unique_ptr<QMenu> menu(field->createStandardContextMenu());
                menu->actions().first()->trigger();
            },
            {});
    }
}

TEST_F(EditorViewTest, TabGoesDownTheColumnsFromTheLeftWithTheFilters)
{
    QSet<QString> reached;
    for (int page = 0; page < editorTabs()->count(); ++page) {
        editorTabs()->setCurrentIndex(page == 0 ? 1 : 0);
        editorTabs()->setCurrentIndex(page);
        SCOPED_TRACE(editorTabs()->tabText(page).toStdString());
        EXPECT_EQ(accessibilityFaults(*view), QStringList());
        QList<QPoint> places;
        for (QWidget *stop : tabStops(*view)) {
            reached.insert(stop->objectName());
            if (editorTabs()->currentWidget()->isAncestorOf(stop))
                places.append(stop->mapTo(view.get(), QPoint()));
        }
        for (const QPoint &place : std::as_const(places))
            EXPECT_LE(places.first().x(), place.x()) << "the first field is on the left";
        for (qsizetype at = 1; at < places.size(); ++at)
            EXPECT_TRUE(places[at].x() > places[at - 1].x() || places[at].y() > places[at - 1].y())
                << "stop " << at;
    }
    EXPECT_TRUE(reached.contains({u"osTableFilter"_s, u"languageTableFilter"_s}));
    for (const PadField &field : padFields)
        EXPECT_EQ(reached.contains(field.control.toString()), field.kind != FieldKind::Computed)
            << field.control.toUtf8().constData();
}

TEST_F(EditorViewTest, NothingMovesWhileTheAuthorTypes)
{
    QHash<const QWidget *, QRect> places;
    const auto whatMoved = [this, &places] {
        QApplication::processEvents();
        QStringList moved;
        for (const QWidget *each : editorTabs()->currentWidget()->findChildren<QWidget *>()) {
            const QRect place(each->mapTo(view.get(), QPoint()), each->size());
            const bool isOurs = !each->objectName().isEmpty() && !each->objectName().startsWith(u"qt_");
            if (const QRect before = std::exchange(places[each], place); isOurs && before != place)
                moved.append(
                    u"%1 %2 to %3"_s.arg(each->objectName()).arg(before.bottom()).arg(place.bottom()));
        }
        return moved.join(u'\n');
    };
    for (const PadField &field : padFields) {
        if (field.kind != FieldKind::Text && field.kind != FieldKind::MultiLine)
            continue;
        auto *input = widget<QWidget>(field.id);
        whatMoved();
        for (const QString &keys : {u"1a"_s, QString(8, u'9')}) {
            QTest::keyClicks(input, keys);
            EXPECT_EQ(whatMoved(), QString()) << "by typing in " << field.control.toUtf8().constData();
        }
    }
}

TEST_F(EditorViewTest, FocusShowsInTextsAndListsLightAndDark)
{
    const QPalette light = view->palette();
    QPalette dark(QColor(0x31, 0x36, 0x3b));
    dark.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    for (const QPalette &palette : {light, dark}) {
        view->setPalette(palette);
        for (const FieldId field : {osTable, eula, changeInformationView}) {
            auto *area = widget<QAbstractScrollArea>(field);
            const QPoint edges[] = {{0, area->height() / 2},
                                    {area->width() / 2, 0},
                                    {area->width() - 1, area->height() / 2},
                                    {area->width() / 2, area->height() - 1}};
            const QImage focused = area->grab().toImage();
            area->clearFocus();
            const QImage plain = area->grab().toImage();
            for (const QPoint edge : edges) {
                EXPECT_GE(contrast(focused.pixelColor(edge), palette.color(QPalette::Base)), 3);
                EXPECT_NE(focused.pixelColor(edge), plain.pixelColor(edge));
            }
        }
    }
}

TEST_F(EditorViewTest, AScreenReaderHearsFieldsHintsAndErrors)
{
    const std::pair<FieldId, const char *> popUps[] = {{categoryPopUp, "Category"},
                                                       {otherPricePopUp, "Other price, currency"},
                                                       {programTypePopUp, "Program type"}};
    for (const auto &[field, name] : popUps) {
        auto *box = widget<FieldComboBox>(field);
        QTest::keyClick(box, Qt::Key_Down);
        const QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(box);
        EXPECT_EQ(heard->text(QAccessible::Name), QLatin1StringView(name));
        EXPECT_EQ(heard->text(QAccessible::Value), editor.form().popUp(field).title());
        EXPECT_FALSE(heard->text(QAccessible::Value).isEmpty());
        EXPECT_EQ(heard->role(), QAccessible::ComboBox);
    }
    FieldLineEdit *name = line(companyName);
    QTest::keyClicks(name, u"A"_s);
    EXPECT_EQ(name->accessibleDescription(), u"The company name is too short."_s);
    QTest::keyClicks(name, u"cme"_s);
    EXPECT_EQ(name->accessibleDescription(), u"Text string 2-40 characters 4 / 40"_s);
}

TEST_F(EditorViewTest, TheWheelScrollsTheFormAndChangesNoPopUp)
{
    view->resize(700, 300);
    for (const PadField &field : fields::popUps()) {
        auto *box = widget<FieldComboBox>(field.id);
        QTest::keyClick(box, Qt::Key_Down);
        const QString before = stored(field.id);
        QScrollBar *bar = qobject_cast<QScrollArea *>(editorTabs()->currentWidget())->verticalScrollBar();
        for (const int turn : {-120, 120}) {
            bar->setValue(bar->maximum() / 2);
            QWheelEvent wheel({5, 5}, box->lineEdit()->mapToGlobal(QPointF(5, 5)), {}, {0, turn},
                              Qt::NoButton, {}, Qt::NoScrollPhase, false);
            QSpontaneKeyEvent::setSpontaneous(&wheel);
            qApp->notify(box->lineEdit(), &wheel);
            EXPECT_EQ(bar->value() > bar->maximum() / 2, turn < 0) << field.control.toUtf8().constData();
            EXPECT_NE(bar->value(), bar->maximum() / 2);
            EXPECT_EQ(stored(field.id), before);
        }
    }
}

TEST_F(EditorViewTest, TheSameViewInPixelsWithoutStrayWindows)
{
    struct Watch : QObject
    {
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Show && watched->isWidgetType() &&
                static_cast<QWidget *>(watched)->isWindow())
                ++windows;
            return false;
        }
        int windows = 0;
    } watch;
    static QStringList warnings;
    warnings.clear();
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { warnings.append(text); });
    const QFont font = QApplication::font();
    QFont inPixels = font;
    inPixels.setPixelSize(14);
    QApplication::setFont(inPixels);
    qApp->installEventFilter(&watch);
    EditorView second(editor);
    EXPECT_EQ(second.findChild<QLabel *>(u"companyNameMessage"_s), nullptr) << "pages are made when shown";
    for (const EditorPage &page : editorPages)
        second.revealField(page.firstField);
    qApp->removeEventFilter(&watch);
    EXPECT_EQ(watch.windows, 0);
    EXPECT_EQ(second.findChild<QLabel *>(u"companyNameMessage"_s)->font().pixelSize(), 12);
    QApplication::setFont(font);
    qInstallMessageHandler(before);
    EXPECT_EQ(warnings, QStringList());
}

TEST_F(EditorViewTest, ThePageOutlivesARun)
{
    editorTabs()->setCurrentIndex(3);
    view.reset();
    start();
    EXPECT_EQ(editorTabs()->currentIndex(), 3);
}
