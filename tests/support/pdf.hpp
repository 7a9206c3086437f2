// What other programs find in a PDF.
#pragma once

#include <cstdio>
#include <string>

namespace zendara {

inline std::string Read(const std::string& command) {
  std::string text;
  FILE* pipe = popen(command.c_str(), "r");
  for (int c = 0; pipe && (c = fgetc(pipe)) != EOF;) text += static_cast<char>(c);
  if (pipe) pclose(pipe);
  return text;
}
inline std::string PdfText(const std::string& path) { return Read("pdftotext -layout '" + path + "' -"); }
inline std::string PdfFacts(const std::string& path) { return Read("pdfinfo '" + path + "'; pdffonts '" + path + "'"); }

}  // namespace zendara
