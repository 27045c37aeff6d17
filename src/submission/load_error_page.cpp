#include "submission/load_error_page.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class LoadErrorPageText
{
    Q_DECLARE_TR_FUNCTIONS(LoadErrorPage)
};

} // namespace

QString loadErrorPage(const QString &description)
{
    const QString heading = LoadErrorPageText::tr("An error occurred while loading the page");
    const QString message = u"<p>&nbsp;</p>%1<p>%2</p>"_s.arg(
        LoadErrorPageText::tr("The following error message was returned:"), description.toHtmlEscaped());
    // Both at once, so that a "%1" in the message stays text.
    return uR"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">)"
           uR"(<html lang="en"><head><meta http-equiv="Content-Type" content="text/html; charset=utf-8">)"
           uR"(<title>%3</title><style type="text/css"><!--.style1 {font-size: 16px}--></style>)"
           uR"(</head><body><div class="style1" align="center"><p>&nbsp;</p><p>&nbsp;</p><p>&nbsp;</p>)"
           uR"(<h3>%1</h3><p>%2</p></div></body></html>)"_s.arg(heading, message,
                                                                LoadErrorPageText::tr("Error Loading URL"));
}

} // namespace quillon
