#include "shell/about_panel.h"

#include "platform/application_info.h"
#include "widgets/bring_to_front.h"

#include <QCoreApplication>
#include <QIcon>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class AboutPanelText
{
    Q_DECLARE_TR_FUNCTIONS(AboutPanel)
};

} // namespace

void openAboutPanel(QWidget *parent)
{
    auto *panel = new QMessageBox(parent);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowTitle(AboutPanelText::tr("About Quillon"));
    panel->setIconPixmap(QIcon(u":/icons/quillon.svg"_s).pixmap(QSize(64, 64)));
    panel->setText(u"Quillon"_s);
    panel->setInformativeText(
        AboutPanelText::tr(
            "Version %1\n\nKeeps the PAD files of your software titles, checks every field as you "
            "type, and takes you from download site to download site.\n\nFree software under the "
            "MIT licence.")
            .arg(application_info::version));
    panel->setTextFormat(Qt::PlainText);
    panel->setModal(false);
    bringToFront(*panel);
}

} // namespace quillon
