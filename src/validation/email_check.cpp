#include "validation/email_check.h"

#include "platform/regex.h"

namespace quillon {

namespace {

EmailAddress::Fit fitOf(qsizetype length, Bounds bounds)
{
    if (bounds.hold(length))
        return EmailAddress::Fit::Fits;
    return length < bounds.min ? EmailAddress::Fit::TooShort : EmailAddress::Fit::TooLong;
}

qsizetype lengthOfMatch(const Regex &pattern, QStringView text, qsizetype group)
{
    const auto match = pattern.firstMatch(text);
    return match ? match->captured(group).size() : 0;
}

void colourLocalPart(const EmailAddress &address, Bounds bounds, TextColours &colours)
{
    if (address.local == EmailAddress::Fit::TooLong) {
        colours.setAll(Colour::Black);
        colours.set(bounds.max, address.at - bounds.max, Colour::Red);
    } else if (address.local != EmailAddress::Fit::Missing) {
        colours.set(0, address.at, address.local == EmailAddress::Fit::Fits ? Colour::Black : Colour::Red);
    }
}

void colourDomain(const EmailAddress &address, Bounds bounds, TextColours &colours)
{
    const qsizetype start = address.at + 1;
    switch (address.domain) {
    case EmailAddress::Fit::Missing:
        if (address.at >= 0)
            colours.set(start, address.domainLength, Colour::Black);
        break;
    case EmailAddress::Fit::TooShort:
        colours.set(start, address.domainLength, Colour::Red);
        break;
    case EmailAddress::Fit::Fits:
        colours.set(address.at, address.point + 1, Colour::Black);
        break;
    case EmailAddress::Fit::TooLong:
        colours.setAll(Colour::Black);
        colours.set(start + bounds.max, address.domainLength - bounds.max, Colour::Red);
        break;
    }
}

void colourExtension(const EmailAddress &address, Bounds bounds, TextColours &colours)
{
    const auto colourLast = [&](qsizetype count, Colour colour) {
        colours.set(address.length - count, count, colour);
    };
    const qsizetype length = address.extensionLength;
    switch (address.extension) {
    case EmailAddress::Fit::Missing:
        break;
    case EmailAddress::Fit::TooShort:
        colourLast(length - 1, Colour::Red);
        break;
    case EmailAddress::Fit::Fits:
        colourLast(length - 1, Colour::Black);
        break;
    case EmailAddress::Fit::TooLong:
        colours.set(address.length - 1 - length, length, Colour::Black);
        colourLast(length - bounds.max - 1, Colour::Red);
        break;
    }
}

} // namespace

EmailAddress takenApart(QStringView text, const EmailBounds &bounds)
{
    static const Regex localPart(u"([a-zA-Z0-9._%+-]+)@");
    // "A-z" lets the six signs between the two alphabets pass as well: kept on purpose.
    static const Regex domainLabel(u"@([a-zA-z0-9-]+)");
    static const Regex extension(u"\\.[a-zA-Z0-9.]+");

    EmailAddress address;
    address.length = text.size();
    address.at = text.indexOf(u'@');
    const QStringView tail = text.sliced(address.at + 1);
    address.point = tail.indexOf(u'.');
    address.domainLength = lengthOfMatch(domainLabel, text, 1);
    address.extensionLength = lengthOfMatch(extension, tail, 0);

    const qsizetype localLength = lengthOfMatch(localPart, text, 1);
    if (localLength > 0)
        address.local = fitOf(localLength, bounds.local);
    if (address.domainLength > 0 && address.point >= 0)
        address.domain = fitOf(address.domainLength, bounds.domain);
    if (address.extensionLength > 0 && address.at >= 0)
        address.extension = fitOf(address.extensionLength - 1, bounds.extension);
    return address;
}

void colour(const EmailAddress &address, const EmailBounds &bounds, TextControl &field)
{
    if (address.at < 0)
        field.setWholeTextColour(Colour::Red);
    if (!field.isEditing())
        return;
    TextColours colours = field.colours();
    colourLocalPart(address, bounds.local, colours);
    colourDomain(address, bounds.domain, colours);
    colourExtension(address, bounds.extension, colours);
    field.setColours(colours);
}

} // namespace quillon
