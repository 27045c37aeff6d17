#pragma once

#include "submission/web_engine_pasting.h"

#include <QStringList>

/// The script of ours that watches each frame of a page for pastes, and what it says.
namespace quillon {

/// What the script says first; no page can guess it.
const QString &pasteToken();

/// The script, for a page that has none yet; where there is one, it looks for new frames.
const QString &pasteWatch();

/// The place that the script's @p words, from "paste" on, tell of in the frame of @p origin.
PastePlace pastePlace(const QUrl &origin, const QStringList &words);

} // namespace quillon
