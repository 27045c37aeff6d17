// Types into a title's version in the program's own windows, for script/torture, which stops it meanwhile:
//
//     quillon_typist --home HOME TITLE
//
// Whenever the status bar knows of nothing that could not be stored, what stands in the field is told on
// standard output. Ends with 3 when another holds the data folder, with 4 when there is nothing to type in.

#include "editor/editor_view.h"
#include "platform/settings.h"
#include "shell/workbench.h"
#include "store/add_delete_import_edit.h"
#include "store/data_folder_lock.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <cstdio>
#include <string_view>

using namespace quillon;

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    setSettingsHome(arguments.value(2));
    setDataFolder(arguments.value(2));
    const DataFolderLock lock;
    if (lock.state() != DataFolderLock::State::Held)
        return 3;
    AddDeleteImportEdit::removeUnfinished();
    Workbench program;
    program.window().show();
    const int row = int(program.overview().softwareTable().swNameArray().indexOf(arguments.value(3)));
    program.window().findChild<QTableView *>(QStringLiteral("softwareTableView"))->selectRow(row);
    program.window().findChild<QAction *>(QStringLiteral("Edit"))->trigger();
    auto *const editor = program.window().findChild<EditorView *>();
    if (!editor)
        return 4;
    editor->revealField(FieldId::programVersion);
    auto *const field = program.window().findChild<QLineEdit *>(QStringLiteral("programVersion"));
    const auto tell = [field] {
        if (failedWritesLine().isEmpty())
            std::puts(field->text().toUtf8().constData());
        std::fflush(stdout);
    };
    tell();
    field->selectAll();
    // More than a version may have, so that an error comes in the end.
    for (const char letter : std::string_view("1234567.90abcdefg")) {
        QTest::keyClick(field, letter);
        tell();
    }
    return 0;
}
