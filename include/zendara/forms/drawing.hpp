// What painting on a picture needs of the toolkit. Colours are red + green x 256 + blue x 65536.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zendara {

struct PictureFont {
  std::string name;
  double size = 0;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeout = false;
};

struct LogicalFont {
  std::string face;
  int height = 0;      // pixels; negative: of the characters, without the leading
  int weight = 0;      // 400 normal, 700 bold
  int escapement = 0;  // of the base line, tenths of a degree counterclockwise
  bool italic = false;
  bool underline = false;
  bool strikeout = false;

  friend bool operator==(const LogicalFont&, const LogicalFont&) = default;
};

// The reference point of a text: centred along the base line, at its top.
inline constexpr int kAlignCentre = 6;
// The same at its left end.
inline constexpr int kAlignLeft = 0;

// What is drawn in a colour of the front end's, whichever palette it shows.
enum class Ink {
  kPaper,    // ground of a drawing
  kDimmed,   // ground of what counts less
  kLine,     // separates, and says nothing
  kText,     // words and marks on either ground
  kWarning,  // marks on either ground
  kAccent,
  kSeries1,  // things to be told apart: each stands out from the grounds
  kSeries2,
  kSeries3,
  kSeries4,
  kSeries5,
  kOnMarks,  // words on warning, accent and series
};

class Screen {
 public:
  virtual ~Screen() = default;
  virtual double TwipsPerPixel() const = 0;
  // A system colour (its sign bit is set) becomes the colour that it stands for now; any other stays as it is.
  virtual std::uint32_t TranslateColor(std::int32_t color) const = 0;
};

// A picture box with its device context: pixels from the top left corner, y down.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;
  virtual double Width() const = 0;  // twips
  virtual double Height() const = 0;
  virtual PictureFont Font() const = 0;
  virtual int VerticalPixelsPerInch() const = 0;

  // The right and bottom edges are outside.
  virtual void FillRect(int left, int top, int right, int bottom, std::uint32_t color) = 0;
  // Nothing when no such font can be made.
  virtual void TextOut(const LogicalFont& font, int alignment, int x, int y, std::string_view text) = 0;
  virtual void Refresh() = 0;
  // The same with inks; the ground is not painted yet.
  virtual void FillMark(int left, int top, int right, int bottom, Ink ink) = 0;
  virtual void Write(const LogicalFont& font, int alignment, int x, int y, std::string_view text, Ink ink) = 0;
};

}  // namespace zendara
