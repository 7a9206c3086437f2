#include "adapters/qt/text.hpp"

#include <QList>
#include <algorithm>

namespace zendara {

QString ToQt(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

std::string FromQt(const QString& text) { return text.normalized(QString::NormalizationForm_C).toStdString(); }

int UnitsOf(const QString& text, int characters) {
  int units = 0;
  for (; characters > 0 && units < text.size(); --characters) {
    units += text.at(units).isHighSurrogate() && units + 1 < text.size() ? 2 : 1;
  }
  return units;
}

int CharactersOf(const QString& text, int units) {
  int characters = 0;
  for (int i = 0; i < std::min<int>(units, static_cast<int>(text.size())); ++i) {
    if (!text.at(i).isLowSurrogate()) ++characters;
  }
  return characters;
}

std::vector<std::string> TypedCharacters(const QString& text) {
  std::vector<std::string> characters;
  for (const uint code_point : text.normalized(QString::NormalizationForm_C).toUcs4()) {
    const auto character = static_cast<char32_t>(code_point);
    if (QChar::category(character) == QChar::Other_Control) continue;
    characters.push_back(QString::fromUcs4(&character, 1).toStdString());
  }
  return characters;
}

QString PlainCaption(std::string_view caption) {
  QString text = ToQt(caption).remove(QLatin1Char('&')).trimmed();
  if (text.endsWith(QLatin1Char(':'))) text.chop(1);
  return text.trimmed();
}

}  // namespace zendara
