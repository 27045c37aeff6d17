#pragma once

#include <QHash>
#include <QString>

/// What is said of a field that is empty, too long or too short, by the field's message key.
namespace quillon {

using MessageDictionary = QHash<QString, QString>;

/// The messages of each case. An empty message means that the case does not apply to the field; a key that
/// is not in there gives nothing. The texts are fixed, their typing errors included: authors and scripts know
/// them.
const MessageDictionary &mwqnErrorMessagesEmpty();
const MessageDictionary &mwqnErrorMessagesOver();
const MessageDictionary &mwqnErrorMessagesUnder();

} // namespace quillon
