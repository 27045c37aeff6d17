#pragma once

#include "submission/form_matching.h"

#include <QAbstractTableModel>
#include <QTimer>

#include <functional>

namespace quillon {

class Browser;

/**
 * Fills the form of a page with values of the selected title, in three steps: looks at its fields, shows as a
 * table what would be typed where, and types what the author has ticked, one field after the other.
 *
 * The page's script looks at each field again in the moment of typing, and leaves it when it is not what and
 * where it was. Afterwards the fields are read back, and what was typed is remembered for the site.
 */
class FormFilling : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Field, ///< With the tick.
        Value,
        Text,
        Why,
        Outcome,
        ColumnCount
    };

    /// @p browser must outlive the table; @p site, by whose name forms are remembered, may be empty.
    FormFilling(Browser &browser, QString site, QObject *parent = nullptr);

    /// Looks at the page; looked() tells when that is done. Once.
    void look();

    /// Types into the ticked fields; filled() tells when that is done. Nothing while it is under way, or when
    /// it is done.
    void fill();

    /// Has the value @p id typed into the field of @p row, or nothing where that is empty. A value that the
    /// field cannot take stays out.
    void choose(int row, const QString &id);

    /// The values that the field of @p row can take.
    [[nodiscard]] QList<TitleValue> valuesFor(int row) const;
    /// The id of the value that is proposed or chosen; empty for none.
    [[nodiscard]] QString valueOf(int row) const { return m_rows[row].proposal.value; }
    [[nodiscard]] const PageField &field(int row) const { return m_rows[row].field; }
    [[nodiscard]] bool isSure(int row) const { return m_rows[row].proposal.isSure; }
    [[nodiscard]] int tickedRows() const;
    [[nodiscard]] bool canFill() const { return m_step == Step::Shown && tickedRows() > 0; }
    /// The author may still choose and tick.
    [[nodiscard]] bool isChoosing() const { return m_step == Step::Shown; }
    [[nodiscard]] bool isTyping() const { return m_step == Step::Typing; }
    /// What there is to say of all of it, in a sentence.
    [[nodiscard]] QString summary() const { return m_summary; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void looked();
    void filled();

private:
    enum class Step
    {
        Looking,
        Shown,
        Typing,
        Done
    };
    struct Row
    {
        PageField field;
        form_matching::Proposal proposal = {}; ///< Without a value where nothing is proposed.
        bool isTicked = false;
        bool isTyped = false;
        QString outcome = {};
    };

    void takeForm(const QVariant &answer);
    void run(const QString &task, const QVariantList &values, std::function<void(const QVariant &)> take);
    void typeNext(int row);
    void readNext(int row);
    void finish();
    void remember();
    void tell(int row, const QString &outcome);
    [[nodiscard]] QVariant text(const Row &row, int column) const;

    Browser &m_browser;
    const QString m_site;
    Step m_step = Step::Looking;
    QList<TitleValue> m_values;
    QList<Row> m_rows;
    int m_form = 0; ///< The number that the script gave its look.
    QString m_summary;
    QTimer m_patience;
    int m_question = 0; ///< Number of the last one; answers to others are too late.
};

} // namespace quillon
