// What nobody should type, in the presets dialog and on the pages of the Advanced sheet: what is
// kept of it lies inside the limits, and the sheet shows it when it opens again.
#include <windows.h>
// Behind its own needs.
#include <commctrl.h>

#include <algorithm>

#include "HostileText.h"

namespace host {
namespace {

using namespace sheetuser;

constexpr size_t kPresetNameUnits = 63;
constexpr size_t kPresetDescriptionUnits = 255;
constexpr size_t kOptionTextUnits = 259;
constexpr int kLargestOption = 3600000;  // the longest time-out; lengths end before it

void ChooseLine(HWND list, int line) {
  Tell(list, LB_SETCURSEL, static_cast<WPARAM>(line), 0);
  Say(list, LBN_SELCHANGE);
}

std::wstring LineOf(HWND list, int line) {
  const LRESULT length = Tell(list, LB_GETTEXTLEN, static_cast<WPARAM>(line), 0);
  std::wstring text(static_cast<size_t>(length < 0 ? 0 : length) + 1, 0);
  Tell(list, LB_GETTEXT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(text.data()));
  text.pop_back();
  return text;
}

TEST_F(HostileText, PresetsKeepTheirLengths) {
  std::vector<std::wstring> texts = HostileTexts();
  texts.push_back(LongPairs());
  GuardedBlock block(kDevModeSize);
  bool isDone = false;
  size_t taken = 0;
  const auto openPresets = [] {
    Press(WaitForControl(IDC_PRESETS));
    HWND list = WaitForControl(IDC_PRESET_LIST);
    EXPECT_NE(list, nullptr) << "no presets dialog";
    return list;
  };
  Open(&block, nullptr, [&] {
    for (size_t i = 0; i < texts.size(); ++i) {
      SCOPED_TRACE(i);
      HWND list = openPresets();
      ASSERT_NE(list, nullptr);
      HWND dialog = WindowOf(list);
      const LRESULT count = Tell(list, LB_GETCOUNT, 0, 0);
      Press(GetDlgItem(dialog, IDC_PRESET_NEW));
      for (int j = 0; j < 500 && Tell(list, LB_GETCOUNT, 0, 0) == count; ++j) Sleep(10);
      ASSERT_EQ(Tell(list, LB_GETCOUNT, 0, 0), count + 1);
      ASSERT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDC_PRESET_NAME)));
      Put(GetDlgItem(dialog, IDC_PRESET_NAME), texts[i]);
      Put(GetDlgItem(dialog, IDC_PRESET_DESCRIPTION), texts[i]);
      taken += Finish(dialog);
    }
    CloseSheet(IDOK);
    isDone = true;
  });
  ASSERT_TRUE(isDone);
  ExpectSound(block);
  // Refused are the two that are blank and the half of a pair.
  EXPECT_EQ(taken, texts.size() - 3);

  std::vector<std::wstring> names;
  size_t blocks = 0;
  for (const StoredValue& value : StoredValues(Printer.Name())) {
    if (!value.Key.ends_with(L"\\Presets")) continue;
    if (value.Name.ends_with(L": Name")) {
      names.push_back(TextOfData(value.Data));
      EXPECT_GE(names.back().size(), 1u);
      EXPECT_LE(names.back().size(), kPresetNameUnits);
      EXPECT_FALSE(EndsInHalfAPair(names.back()));
    } else if (value.Name.ends_with(L": Description")) {
      EXPECT_LE(TextOfData(value.Data).size(), kPresetDescriptionUnits);
      EXPECT_FALSE(EndsInHalfAPair(TextOfData(value.Data)));
    } else if (value.Name.ends_with(L": DEVMODE")) {
      ++blocks;
      ASSERT_EQ(value.Data.size(), static_cast<size_t>(kDevModeSize));
      EXPECT_EQ(std::memcmp(value.Data.data() + kDevModeSize - 8, "vtsost", 6), 0);
    }
  }
  EXPECT_EQ(names.size(), taken);
  EXPECT_EQ(blocks, taken);

  GuardedBlock again(kDevModeSize);
  isDone = false;
  Open(&again, block.Mode(), [&] {
    HWND list = openPresets();
    ASSERT_NE(list, nullptr);
    std::vector<std::wstring> lines;
    for (int i = 0; i < Tell(list, LB_GETCOUNT, 0, 0); ++i) lines.push_back(LineOf(list, i));
    for (const std::wstring& name : names)
      EXPECT_EQ(std::count(lines.begin(), lines.end(), name), 1) << name.size();
    EXPECT_EQ(lines.size(), names.size() + 2);  // and the built-in ones
    EXPECT_TRUE(Finish(WindowOf(list)));
    // Each can be chosen.
    HWND box = WaitForControl(IDC_PRESET);
    for (int i = 0; i < CountOf(box); ++i) Choose(box, i);
    EXPECT_EQ(static_cast<size_t>(CountOf(box)), lines.size());
    CloseSheet(IDOK);
    isDone = true;
  });
  EXPECT_TRUE(isDone);
  ExpectSound(again);
}

TEST_F(HostileText, UserCommandsStayInTheirPlaces) {
  const struct {
    size_t Start, Size, Limit;
  } slots[] = {{0, 256, 255}, {256, 256, 255}, {512, 256, 255}, {768, 252, 250}};
  constexpr size_t kRecord = kPublicSize + 164;
  std::vector<std::wstring> texts = HostileTexts();
  texts.push_back(LongPairs());
  const std::vector<BYTE> defaults = DefaultDevMode(Printer);
  for (size_t first = 0; first < texts.size(); first += 3) {
    SCOPED_TRACE(first);
    GuardedBlock block(kDevModeSize);
    std::wstring shown[4];
    bool isDone = false;
    Open(&block, reinterpret_cast<const DEVMODEW*>(defaults.data()), [&] {
      HWND points = OpenAdvanced(0, IDC_COMMAND_POINTS);
      ASSERT_NE(points, nullptr);
      HWND edit = GetDlgItem(WindowOf(points), IDC_COMMAND_TEXT);
      for (size_t point = 0; point < 4; ++point) {
        ChooseLine(points, static_cast<int>(point));
        Put(edit, texts[(first + point) % texts.size()]);
        shown[point] = TextOf(edit);
      }
      EXPECT_TRUE(Finish(SheetOf(points)));
      CloseSheet(IDOK);
      isDone = true;
    });
    ASSERT_TRUE(isDone);
    ExpectSound(block);
    std::vector<BYTE> bytes = block.Copy();
    for (const auto& slot : slots) {
      const char* text = reinterpret_cast<const char*>(bytes.data() + kRecord + slot.Start);
      const size_t length = strnlen(text, slot.Size);
      EXPECT_LE(length, slot.Limit);
      for (size_t i = length; i < slot.Size; ++i) EXPECT_EQ(text[i], 0) << slot.Start + i;
    }
    // Beside the commands nothing changed.
    std::memcpy(bytes.data() + kRecord, defaults.data() + kRecord, 1020);
    EXPECT_EQ(bytes, defaults);

    GuardedBlock again(kDevModeSize);
    isDone = false;
    Open(&again, block.Mode(), [&] {
      HWND points = OpenAdvanced(0, IDC_COMMAND_POINTS);
      ASSERT_NE(points, nullptr);
      HWND edit = GetDlgItem(WindowOf(points), IDC_COMMAND_TEXT);
      for (size_t point = 0; point < 4; ++point) {
        ChooseLine(points, static_cast<int>(point));
        EXPECT_EQ(TextOf(edit), shown[point]) << point;
      }
      EXPECT_TRUE(Finish(SheetOf(points)));
      CloseSheet(IDOK);
      isDone = true;
    });
    ASSERT_TRUE(isDone);
    EXPECT_EQ(again.Copy(), block.Copy());
    if (HasFailure()) return;
  }
}

std::wstring ValueOf(HWND list, int row) {
  wchar_t text[512] = {};
  LVITEMW item = {};
  item.iSubItem = 1;
  item.pszText = text;
  item.cchTextMax = 512;
  Tell(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  return text;
}

std::vector<std::wstring> ValuesOf(HWND list) {
  std::vector<std::wstring> values;
  const int rows = static_cast<int>(Tell(list, LVM_GETITEMCOUNT, 0, 0));
  for (int row = 0; row < rows; ++row) values.push_back(ValueOf(list, row));
  return values;
}

void ChooseRow(HWND list, int row) {
  LVITEMW item = {};
  item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  Tell(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

// The largest number that an option can hold.
int MostOf(const StoredValue& value) {
  if (value.Name == L"Tracking") return 2;
  if (value.Name.ends_with(L"Resolution")) return INT16_MAX;
  return value.Key.ends_with(L"\\Specifications") ? INT16_MAX * 100 : kLargestOption;
}

TEST_F(HostileText, DriverOptionsStayInsideTheirBounds) {
  for (size_t i = 0; i < HostileTexts().size(); ++i) {
    SCOPED_TRACE(i);
    GuardedBlock block(kDevModeSize);
    std::vector<std::wstring> shown;
    int edits = 0;
    bool isDone = false;
    Open(&block, nullptr, [&] {
      HWND list = OpenAdvanced(1, IDC_OPTION_LIST);
      ASSERT_NE(list, nullptr);
      HWND edit = GetDlgItem(WindowOf(list), IDC_OPTION_TEXT);
      HWND choice = GetDlgItem(WindowOf(list), IDC_OPTION_CHOICE);
      const int rows = static_cast<int>(Tell(list, LVM_GETITEMCOUNT, 0, 0));
      for (int row = 0; row < rows; ++row) {
        ChooseRow(list, row);
        // Switches are on, so that what they keep from others can be edited.
        if (IsWindowVisible(choice) && IsWindowEnabled(choice)) Choose(choice, CountOf(choice) - 1);
        if (!IsWindowVisible(edit) || !IsWindowEnabled(edit)) continue;
        Put(edit, HostileTexts()[i]);
        ++edits;
      }
      shown = ValuesOf(list);
      EXPECT_TRUE(Finish(SheetOf(list)));
      CloseSheet(IDOK);
      isDone = true;
    });
    ASSERT_TRUE(isDone);
    EXPECT_GE(edits, 11);  // five lengths, two paths, three times, a character

    int stored = 0;
    for (const StoredValue& value : StoredValues(Printer.Name())) {
      if (!value.Key.starts_with(PrinterKey(Printer.Name()) + L"\\PrinterDriverData\\Settings") ||
          value.Type == REG_NONE || value.Name.starts_with(L"User Form"))
        continue;
      ++stored;
      if (value.Type == REG_SZ) {
        const size_t limit = value.Name == L"Function Character" ? 1 : kOptionTextUnits;
        EXPECT_LE(TextOfData(value.Data).size(), limit);
        EXPECT_FALSE(EndsInHalfAPair(TextOfData(value.Data)));
      } else if (value.Data.size() == sizeof(int)) {
        int number = 0;
        std::memcpy(&number, value.Data.data(), sizeof number);
        EXPECT_GE(number, 0);
        EXPECT_LE(number, MostOf(value));
      } else {
        ASSERT_EQ(value.Data.size(), 1u);
        EXPECT_LE(value.Data[0], 1);
      }
    }
    EXPECT_GE(stored, 15);

    // With limits that contradict each other too.
    GuardedBlock again(kDevModeSize);
    isDone = false;
    Open(&again, block.Mode(), [&] {
      EXPECT_GE(CountOf(WaitForControl(IDC_STOCK)), 1);
      HWND list = OpenAdvanced(1, IDC_OPTION_LIST);
      ASSERT_NE(list, nullptr);
      EXPECT_TRUE(ValuesOf(list) == shown);
      EXPECT_TRUE(Finish(SheetOf(list)));
      CloseSheet(IDOK);
      isDone = true;
    });
    ASSERT_TRUE(isDone);
    const std::vector<BYTE> bytes = again.Copy();
    EXPECT_EQ(again.Mode()->dmSize, kPublicSize);
    EXPECT_EQ(again.Mode()->dmDriverExtra, kPrivateSize);
    EXPECT_EQ(std::memcmp(bytes.data() + kDevModeSize - 8, "vtsost", 6), 0);
    EXPECT_GE(again.Mode()->dmPaperWidth, 0);
    EXPECT_GE(again.Mode()->dmPaperLength, 0);
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace host
