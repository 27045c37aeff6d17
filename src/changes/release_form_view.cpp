#include "changes/release_form_view.h"

#include "changes/release_plan.h"
#include "editor/pop_up_accessible.h"
#include "pad/vocabularies.h"
#include "widgets/focus_frame.h"
#include "widgets/raw_text.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDateEdit>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int linesOfChanges = 4;

template<typename Widget>
Widget *named(Widget *widget, const QString &name, const QString &accessibleName)
{
    widget->setObjectName(name);
    widget->setAccessibleName(accessibleName);
    return widget;
}

} // namespace

ReleaseFormView::ReleaseFormView(QWidget *parent)
    : PlanForm(parent)
    , m_version(named(new QLineEdit, u"releaseVersion"_s, tr("Version")))
    , m_date(named(new QDateEdit(QDate::currentDate()), u"releaseDate"_s, tr("Release date")))
    , m_file(named(new QLineEdit, u"releaseFile"_s, tr("Released file")))
    , m_status(named<QComboBox>(new NamedPopUp, u"releaseStatus"_s, tr("Release status")))
    , m_addresses(named(new QCheckBox(tr("&Replace the old version in addresses")), u"releaseAddresses"_s,
                        tr("Replace the old version in addresses")))
    , m_changes(
          named<QPlainTextEdit>(new WithFocusFrame<QPlainTextEdit>, u"releaseChanges"_s, tr("What is new")))
{
    m_date->setCalendarPopup(true);
    m_file->setPlaceholderText(tr("Its size becomes the size of the titles"));
    m_status->addItem(tr("(as it is)"));
    m_status->addItems(vocabulary::releaseStatuses());
    m_addresses->setChecked(true);
    m_changes->setPlaceholderText(tr("Left empty, the text stays as it is"));
    m_changes->setTabChangesFocus(true);
    m_changes->setFixedHeight(m_changes->fontMetrics().lineSpacing() * linesOfChanges + 12);
    auto *left = new QFormLayout;
    left->addRow(tr("&Version:"), m_version);
    left->addRow(tr("&Date:"), m_date);
    left->addRow(tr("&Status:"), m_status);
    auto *right = new QFormLayout;
    auto *fileLabel = new QLabel(tr("&File:"));
    fileLabel->setBuddy(m_file); // The row that it stands in takes no keyboard.
    right->addRow(fileLabel, newFileRow());
    right->addRow(tr("What is &new:"), m_changes);
    right->addRow(QString(), m_addresses);
    auto *columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addLayout(left, 2);
    columns->addLayout(right, 5);
    m_version->setFocus(); // Only now: before, it was no part of the form.
    for (QLineEdit *line : {m_version, m_file})
        connect(line, &QLineEdit::textChanged, this, &PlanForm::changed);
    connect(m_date, &QDateEdit::dateChanged, this, &PlanForm::changed);
    connect(m_status, &QComboBox::currentIndexChanged, this, &PlanForm::changed);
    connect(m_addresses, &QCheckBox::toggled, this, &PlanForm::changed);
    connect(m_changes, &QPlainTextEdit::textChanged, this, &PlanForm::changed);
}

QWidget *ReleaseFormView::newFileRow()
{
    auto *choose =
        named(new QPushButton(tr("Ch&oose…")), u"chooseReleaseFile"_s, tr("Choose the released file"));
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &ReleaseFormView::chooseFile);
    auto *widget = new QWidget;
    auto *row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_file, 1);
    row->addWidget(choose);
    return widget;
}

void ReleaseFormView::chooseFile()
{
    auto *chooser = new QFileDialog(this, tr("Choose the Released File"));
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    connect(chooser, &QFileDialog::fileSelected, m_file, &QLineEdit::setText);
    chooser->open();
}

Result<ChangePreview::Planner> ReleaseFormView::planner() const
{
    if (m_version->text().isEmpty())
        return Error{Error::Kind::Refused, {}, tr("Give the version of the release.")};
    release_plan::Release release{.version = m_version->text(),
                                  .date = m_date->date(),
                                  .replacesVersionInAddresses = m_addresses->isChecked()};
    if (m_status->currentIndex() > 0)
        release.status = m_status->currentText();
    if (const QString changes = rawText(*m_changes); !changes.isEmpty())
        release.changes = changes;
    if (!m_file->text().isEmpty()) {
        const auto file = release_plan::fileAt(m_file->text());
        if (!file)
            return Error{Error::Kind::Refused, {}, tr("The released file: %1.").arg(file.error().reason)};
        release.file = *file;
    }
    if (const Result<> judged = release_plan::judge(release); !judged)
        return judged.error();
    return ChangePreview::Planner(
        [release](const QStringList &titles) { return release_plan::plan(release, titles); });
}

} // namespace quillon
