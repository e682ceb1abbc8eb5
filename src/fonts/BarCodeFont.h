// A data font that is printed as a bar code, linear or two-dimensional.
#pragma once

#include <cstdint>
#include <memory>

#include "fonts/DataFont.h"

namespace ostvt {

class PrinterModel;

// As one choice: none, or on which side of the bars.
inline constexpr uint16_t kNoHumanReadable = 0;
inline constexpr uint16_t kHumanReadableBelow = 1;
inline constexpr uint16_t kHumanReadableAbove = 2;

// What setters are given is brought to what their fields hold.
class BarCodeFont : public DataFont {
 public:
  // Code 39, 65 mils high, the narrow bar 15 mils, in dots of `resolution`, which
  // is in dots per inch; no dots at one that is none, as with Rescale.
  explicit BarCodeFont(uint32_t resolution = DataFontHeader().Resolution);
  std::unique_ptr<DataFont> Clone() const override;

  bool IsMatrix() const { return Header.Kind == kDataFontMatrix; }
  // Dots of the stored resolution become those of `resolution` that are as long: the height of a
  // linear code and the narrow bar, of which at least one dot is left. With the stored resolution
  // nothing changes but that the height is limited; with 0 or one above INT32_MAX, which are none,
  // all dots become 0.
  void Rescale(uint32_t resolution);

  uint16_t GetSymbology() const { return IsMatrix() ? Matrix.Symbology : Linear.Symbology; }
  // Takes over rotation, narrow bar and human readable text; what else the font says is
  // kept from one linear code to another alone. A number above 37 is a linear code without rules.
  void SetSymbology(uint16_t number);
  uint16_t GetRotation() const { return IsMatrix() ? Matrix.Rotation : Linear.Rotation; }
  void SetRotation(uint16_t quarterTurns);  // 3 if it is more
  // 0 at a resolution that is none, as the height; setting either gives 0 dots then. Mils below 0
  // are none.
  int32_t GetNarrowBarMils() const;
  void SetNarrowBarMils(int32_t mils);  // at most 65535 dots
  int32_t GetHeightMils() const;        // 0 for a matrix code, which has none
  void SetHeightMils(int32_t mils);     // at most 9999 dots
  // Wide bars in hundredths of narrow ones; 0: as the model does it, and in a matrix code.
  int32_t GetRatio() const;
  void SetRatio(int32_t hundredths);  // 0 to 6553500; nothing in a matrix code
  uint16_t GetHumanReadable() const;
  void SetHumanReadable(uint16_t choice);  // any other number is kHumanReadableAbove
  // Codabar's start and stop characters, "A" to "D" in either case; kept in lower case. False, and
  // nothing changed, for others and in any other symbology.
  bool SetStartStop(char start, char stop);
  // In a Codabar from outside: what is no start or stop character becomes "a".
  void SettleStartStop();
  // The model can print it; false for null.
  bool IsValidFor(PrinterModel* model) const;

  // By the header's kind.
  union {
    LinearBody Linear;
    MatrixBody Matrix;
  };

 private:
  void ClearBody();
  uint16_t GetNarrowBar() const { return IsMatrix() ? Matrix.NarrowBar : Linear.NarrowBar; }
  void SetNarrowBar(uint16_t dots) { (IsMatrix() ? Matrix.NarrowBar : Linear.NarrowBar) = dots; }
};

}  // namespace ostvt
