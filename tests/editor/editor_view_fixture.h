#pragma once

#include "editor/choice_bindings.h"
#include "editor/editor.h"
#include "editor/editor_view.h"
#include "editor/field_line_edit.h"
#include "editor/field_text_edit.h"
#include "platform/settings.h"
#include "store/error_tracking.h"
#include "support/gui.h"
#include "support/recorders.h"
#include "support/temporary_home.h"

#include <QLabel>
#include <QListView>
#include <QTabWidget>

namespace quillon {

using enum FieldId;

/// The real editor and its view on an empty title, driven by keys and mouse.
class EditorViewTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        setSettingsHome(home());
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"T"_s));
        selectTitle(u"T"_s);
        editor.awakeFromNib();
        editor.loadPADData();
        start();
    }

    /// A view as the program makes one when it begins.
    void start()
    {
        view = std::make_unique<EditorView>(editor);
        editor.checkEntriesForErrors();
        view->resize(1280, 640);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }

    QTabWidget *editorTabs() { return view->findChild<QTabWidget *>(u"editorTabs"_s); }
    template<typename Widget>
    Widget *widget(FieldId field)
    {
        view->revealField(field);
        auto *found = view->findChild<Widget *>(padField(field).control.toString());
        EXPECT_NE(found, nullptr);
        return found;
    }
    FieldLineEdit *line(FieldId field) { return widget<FieldLineEdit>(field); }
    FieldTextEdit *text(FieldId field) { return widget<FieldTextEdit>(field); }
    static QString stored(FieldId field)
    {
        const QString file = QString::fromUtf8(*AddDeleteImportEdit::returnDataObjectFor(u"data"));
        const QString tag = padField(field).element.toString();
        const qsizetype start = file.indexOf(u'<' + tag + u'>') + tag.size() + 2;
        return file.sliced(start, file.indexOf(u"</" + tag + u'>') - start);
    }
    QLabel *label(const QString &name) { return view->findChild<QLabel *>(name); }
    /// Whether the pixels of @p widget hold a saturated red.
    static bool showsRed(QWidget *widget)
    {
        const QImage image = widget->grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.red() > 150 && colour.green() < 90 && colour.blue() < 90)
                    return true;
            }
        }
        return false;
    }

    RecordingSheets sheets;
    Editor editor{sheets};
    std::unique_ptr<EditorView> view;
};

} // namespace quillon
