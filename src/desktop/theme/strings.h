// Conversion between the core's strings and the toolkit's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace plimo {

QString qstring(std::string_view text);  // invalid UTF-8 becomes replacement characters
// The same, cut in its middle if it is too long to be laid out quickly.
QString shownText(std::string_view text);
// A file's name as it is shown: in composed form, so that equal names look equal. Control characters, and those that
// override the direction of text, become signs, so that a name cannot pretend to be another.
QString shownName(std::string_view name);
std::string bytesOf(const QString& text);

// "3:05", with hours "1:03:05".
QString clockText(double seconds);

// A tooltip's text, escaped if it would be taken for markup: it may be a file's name.
QString plainTip(const QString& text);

}  // namespace plimo
