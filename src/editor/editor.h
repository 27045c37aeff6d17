#pragma once

#include "editor/editor_pages.h"
#include "pad/pad_form.h"
#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QObject>

namespace quillon {

class AlertSheets;
class ErrorLog;
class ErrorPass;

/**
 * The editor of the selected title's PAD file.
 *
 * There is no command to save: whatever the author changes is checked and stored at once, errors included. A
 * view binds each control of form() to a widget and calls what is named here when the author acts. With no
 * title selected everything is checked and shown, but nothing is read or written.
 */
class Editor : public QObject
{
    Q_OBJECT
public:
    /// @p sheets must outlive the editor.
    explicit Editor(AlertSheets &sheets, QObject *parent = nullptr);

    [[nodiscard]] PadForm &form() { return m_form; }
    [[nodiscard]] const PadForm &form() const { return m_form; }

    /// Makes the editor listen to requests to load and to check. To be called once.
    void awakeFromNib();

    /// Fills the form from the stored PAD file, without checking it. A file that is missing or no PAD file at
    /// all empties the form; what it held is kept beside it before the file is replaced. One that cannot be
    /// read empties the form too, and nothing of the title is stored until it is loaded again.
    void loadPADData();

    /// What came of the last loadPADData(); a missing file and one that is no PAD file are no errors.
    [[nodiscard]] const Result<> &loaded() const { return m_loaded; }

    /// The author makes @p text the text of the single-line or multi-line field @p field: it is set,
    /// filtered, checked and stored, and counts as being edited until controlTextDidEndEditing().
    void typed(FieldId field, const QString &text);

    /// The text of a single-line field has changed.
    void controlTextDidChange(FieldId field);
    /// The text of a multi-line field has changed.
    void textDidChange(FieldId field);
    /// The author leaves a single-line field; dates are put in order then, and an impossible year is told of.
    void controlTextDidEndEditing(FieldId field);
    /// The author leaves a field of any kind, after controlTextDidEndEditing() where that belongs to it.
    void leave(FieldId field) { Q_EMIT left(field); }
    /// What the author did so far is to be a step of its own when it is taken back.
    void endStep() { Q_EMIT stepEnded(); }
    /// The author has chosen from a pop-up or clicked the check box.
    void controlAction(FieldId field);

    /// The check lists, row by row. A row that does not exist is empty and cannot be ticked.
    [[nodiscard]] int numberOfRows(FieldId list) const;
    [[nodiscard]] QString rowTitle(FieldId list, int row) const;
    [[nodiscard]] bool isRowTicked(FieldId list, int row) const;
    /// The author clicks the box in @p row.
    void toggleRow(FieldId list, int row);

    /// The field that takes the keyboard, with the insertion point at the end of its text, when the author
    /// picks the page @p label.
    [[nodiscard]] FieldId didSelectTabViewItem(QStringView label) const { return firstFieldOf(label); }

    /// Sets fields to values of PadForm::value() as they stand, past the filters of typing, and checks once.
    void setValues(const QList<std::pair<FieldId, QString>> &values);

    /// The full check: judges every field and stores the error log, the PAD file and the summary file, each
    /// only if it would change.
    void checkEntriesForErrors();

    /// Message by field key, as of the last full check; a missing error log hides none of them.
    [[nodiscard]] const StringDictionary &errors() const { return m_errors; }
    /// What the last full check found wrong with @p field; empty when nothing.
    [[nodiscard]] QString errorMessage(FieldId field) const;
    /// How many fields on @p page had an error at the last full check.
    [[nodiscard]] int errorCount(const EditorPage &page) const { return quillon::errorCount(m_errors, page); }

    /// Stores the PAD file of what the form holds.
    void createPADFileData();
    /// Stores the summary of what the form holds, the submission marks kept as they are.
    void createGeneralFileData() const;

Q_SIGNALS:
    /// The form is going to be filled anew.
    void formAboutToLoad();
    /// The author has changed @p field, and it is stored.
    void edited(quillon::FieldId field);
    /// The author has left @p field, and it is stored.
    void left(quillon::FieldId field);
    void stepEnded();
    /// A full check is done that no editing has asked for.
    void rechecked();
    /// The form was filled anew, or emptied because of what loaded() tells.
    void formLoaded();
    /// A full check is done and everything is stored.
    void checked();

private:
    void checkAll();
    void check(const ErrorLog &log, ErrorPass &errors);
    [[nodiscard]] bool mayStore() const;
    void storeSummary(bool isValid) const;

    PadForm m_form;
    AlertSheets &m_sheets;
    StringDictionary m_errors;
    Result<> m_loaded;
    bool m_keepsOldPad =
        false; ///< The stored PAD file is none; it is to be kept beside before it is replaced.
};

} // namespace quillon
