// Texts of the model, UTF-8 counted in characters, as texts of the toolkit, UTF-16 counted in units.
#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

namespace zendara {

QString ToQt(std::string_view text);
// Composed (NFC), as the model counts.
std::string FromQt(const QString& text);

// Units of the first `characters` of the text, and characters of its first `units`.
int UnitsOf(const QString& text, int characters);
int CharactersOf(const QString& text, int units);

// The characters one by one; what types nothing (controls) is left out.
std::vector<std::string> TypedCharacters(const QString& text);

// A caption without the mark of its access key, and without the colon that ends it.
QString PlainCaption(std::string_view caption);

}  // namespace zendara
