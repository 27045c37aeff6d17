#pragma once

#include "editor/hint_label.h"
#include "support/accessibility.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTextDocumentFragment>

namespace quillon {

namespace untranslated {

/// Whether Qt gives the text of @p widget, or it is one of the author's or of the form's: hints are English.
inline bool isNotOurs(const QWidget &widget)
{
    const auto *box = qobject_cast<const QDialogButtonBox *>(widget.parentWidget());
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    const bool isStandard = box && button && box->standardButton(const_cast<QAbstractButton *>(button));
    return isStandard || dynamic_cast<const HintLabel *>(&widget) || widget.objectName().startsWith(u"qt_");
}

/// What @p widget itself says in captions; what it holds is left out.
inline QStringList textsOf(const QWidget &widget)
{
    QStringList texts{widget.accessibleName()};
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        texts += {label->text(), label->toolTip()};
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        texts += {button->text(), button->toolTip()};
    if (const auto *group = qobject_cast<const QGroupBox *>(&widget))
        texts += group->title();
    if (const auto *line = qobject_cast<const QLineEdit *>(&widget))
        texts += line->placeholderText();
    if (const auto *tabs = qobject_cast<const QTabBar *>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts += {tabs->tabText(tab), tabs->tabToolTip(tab)};
    }
    if (const auto *header = qobject_cast<const QHeaderView *>(&widget); header && header->model()) {
        for (int section = 0; section < header->count(); ++section)
            texts += header->model()->headerData(section, header->orientation()).toString();
    }
    if (const auto *menu = qobject_cast<const QMenu *>(&widget)) {
        texts += menu->title();
        for (const QAction *action : menu->actions())
            texts += {action->text(), action->toolTip()};
    }
    return texts;
}

/// Whether a word of @p text stands outside of the brackets of the made-up language and is none of @p own.
inline bool hasForeignWord(const QString &text, const QStringList &own)
{
    int depth = 0;
    QString outside;
    const QString plain = QTextDocumentFragment::fromHtml(text).toPlainText().remove(u'&');
    for (const QChar unit : plain) {
        depth += unit == u'[' ? 1 : 0;
        outside += depth > 0 && unit != u']' ? u' ' : unit;
        depth -= unit == u']' ? 1 : 0;
    }
    for (const QString &word : own)
        outside.remove(word);
    const auto letters = std::ranges::count_if(outside, [](QChar unit) { return unit.isLetter(); });
    return letters > 1;
}

} // namespace untranslated

/// What in @p window as it is shown has not come through a translation function, a line each, when texts are
/// in the made-up language of pseudo_translation.py. @p own are names and the like, which are the same in
/// every language.
inline QStringList untranslatedTexts(const QWidget &window, const QStringList &own)
{
    QStringList faults;
    if (untranslated::hasForeignWord(window.windowTitle(), own))
        faults.append(QStringLiteral("the window's title, “%1”").arg(window.windowTitle()));
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isMenu = qobject_cast<const QMenu *>(widget);
        if ((!isMenu && (!widget->isVisible() || widget->window() != &window)) ||
            untranslated::isNotOurs(*widget))
            continue;
        for (const QString &text : untranslated::textsOf(*widget)) {
            if (untranslated::hasForeignWord(text, own))
                faults.append(QStringLiteral("%1: “%2”").arg(nameForPeople(*widget), text));
        }
    }
    return faults;
}

} // namespace quillon
