#include "submission/load_error_page.h"

using namespace Qt::StringLiterals;

namespace quillon {

QString loadErrorPage(const QString &description)
{
    const QString heading = u"An error occurred while loading the page"_s;
    const QString message =
        u"<p>&nbsp;</p>The following error message was returned:<p>%1</p>"_s.arg(description.toHtmlEscaped());
    // Both at once, so that a "%1" in the message stays text.
    return uR"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">)"
           uR"(<html lang="en"><head><meta http-equiv="Content-Type" content="text/html; charset=utf-8">)"
           uR"(<title>Error Loading URL</title><style type="text/css"><!--.style1 {font-size: 16px}--></style>)"
           uR"(</head><body><div class="style1" align="center"><p>&nbsp;</p><p>&nbsp;</p><p>&nbsp;</p>)"
           uR"(<h3>%1</h3><p>%2</p></div></body></html>)"_s.arg(heading, message);
}

} // namespace quillon
