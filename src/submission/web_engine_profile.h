#pragma once

#include <QString>

#include <memory>

class QWebEngineProfile;

namespace quillon {

/// What all pages of the submission window share: cookies and other data in @p folder, and what a page may
/// do, which is neither to read the clipboard nor files, places or devices, nor anything of this program, nor
/// to store anything as part of another site's page, or a script that goes on without a page. It must outlive
/// its pages.
std::unique_ptr<QWebEngineProfile> newWebEngineProfile(const QString &folder);

/// A profile for visits that nobody sees: it keeps nothing, takes no cookies, and pages run no scripts and
/// fetch nothing besides themselves.
std::unique_ptr<QWebEngineProfile> newVisitProfile();

} // namespace quillon
