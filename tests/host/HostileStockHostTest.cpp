// What nobody should type, in the editor of stocks: what is kept of it lies inside the model's
// limits, and the sheet shows it when it opens again.
#include <string_view>

#include "HostileText.h"

namespace host {
namespace {

using namespace sheetuser;

constexpr wchar_t kFormsKey[] = L"SOFTWARE\\Vantrel\\Drivers\\Paper Sizes";

struct Form {
  std::wstring Name;
  int Width, Height, Left, Right, Top, Bottom, Flags;
};
constexpr size_t kFormSize = 7 * sizeof(int);

class HostileStock : public HostileText {
 protected:
  void SetUp() override {
    HostileText::SetUp();
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kFormsKey);
  }
  void TearDown() override { RegDeleteTreeW(HKEY_LOCAL_MACHINE, kFormsKey); }

  const std::vector<BYTE>* FindValue(const std::vector<StoredValue>& values,
                                     const std::wstring& key, const std::wstring& name) {
    for (const StoredValue& value : values) {
      if (value.Key == key && value.Name == name) return &value.Data;
    }
    return nullptr;
  }
  // All stocks in the store, the user form too.
  std::vector<Form> Forms() {
    std::vector<Form> forms;
    const std::vector<StoredValue> values = StoredValues(Printer.Name());
    for (const StoredValue& value : values) {
      const size_t end = value.Name.rfind(L": Data");
      if (end == std::wstring::npos || value.Name.find(L"Form") == std::wstring::npos) continue;
      Form form = {};
      EXPECT_EQ(value.Data.size(), kFormSize);
      if (value.Data.size() == kFormSize) std::memcpy(&form.Width, value.Data.data(), kFormSize);
      const std::vector<BYTE>* name =
          FindValue(values, value.Key, value.Name.substr(0, end) + L": Name");
      EXPECT_NE(name, nullptr);
      if (name) form.Name = TextOfData(*name);
      forms.push_back(form);
    }
    return forms;
  }
  void ExpectFormsInsideTheModel() {
    for (const Form& form : Forms()) {
      EXPECT_GE(form.Name.size(), 1u);
      EXPECT_LE(form.Name.size(), kStockNameUnits);
      EXPECT_FALSE(EndsInHalfAPair(form.Name));
      EXPECT_TRUE(std::wstring_view(L" \t").find(form.Name.front()) == std::wstring_view::npos);
      EXPECT_GE(form.Width, kLeastSide);
      EXPECT_GE(form.Height, kLeastSide);
      for (const int margin : {form.Left, form.Right, form.Top, form.Bottom}) EXPECT_GE(margin, 0);
      EXPECT_LE(int64_t{form.Width} + form.Left + form.Right, kMostWidth);
      EXPECT_LE(int64_t{form.Height} + form.Top + form.Bottom, kMostHeight);
    }
  }
  // The sheet over that block shows every stock of the store, and the block's is chosen. What a
  // block says of its sizes is settled wherever it comes in: tenths are cut, where the page rounded
  // them, and a user form follows the model's own minimum.
  void ExpectStocksShown(GuardedBlock* block) {
    const std::vector<Form> forms = Forms();
    GuardedBlock settled(kDevModeSize);
    ASSERT_EQ(Properties(Printer, settled.Mode(), block->Mode(), DM_IN_BUFFER | DM_OUT_BUFFER),
              IDOK);
    ExpectSound(settled);
    GuardedBlock again(kDevModeSize);
    bool isDone = false;
    Open(&again, block->Mode(), [&] {
      HWND stock = WaitForControl(IDC_STOCK);
      ASSERT_NE(stock, nullptr);
      std::vector<std::wstring> shown;
      for (int i = 0; i < CountOf(stock); ++i) shown.push_back(ItemOf(stock, i));
      size_t listed = 0;
      for (const Form& form : forms) {
        if (form.Flags & 1) continue;  // the user form is there in any case
        ++listed;
        size_t found = 0;
        for (const std::wstring& item : shown) found += item.starts_with(form.Name + L" (");
        EXPECT_GE(found, 1u);
      }
      EXPECT_EQ(shown.size(), listed + 1);
      EXPECT_TRUE(ItemOf(stock, ChosenOf(stock))
                      .starts_with(std::wstring(block->Mode()->dmFormName) + L" ("));
      CloseSheet(IDOK);
      isDone = true;
    });
    EXPECT_TRUE(isDone);
    EXPECT_TRUE(again.Copy() == settled.Copy());
    GuardedBlock sized(kDevModeSize);
    std::memcpy(sized.Data(), again.Data(), kDevModeSize);
    sized.Mode()->dmPaperWidth = block->Mode()->dmPaperWidth;
    sized.Mode()->dmPaperLength = block->Mode()->dmPaperLength;
    EXPECT_TRUE(sized.Copy() == block->Copy());
  }
  // The block of a sheet in which `work` was done, and what the next sheet makes of it.
  template <class Work>
  void ExpectTaken(GuardedBlock* block, Work work) {
    bool isDone = false;
    const LONG result = Open(block, nullptr, [&] {
      work();
      CloseSheet(IDOK);
      isDone = true;
    });
    ASSERT_TRUE(isDone);
    EXPECT_EQ(result, IDOK);
    ExpectSound(*block);
    ExpectStocksShown(block);
  }
  // Into the editor that the button opens; true when it was taken.
  static bool TypeIntoEditor(int button, const std::wstring& text) {
    Press(WaitForControl(button));
    HWND width = WaitForControl(IDC_STOCK_WIDTH);
    EXPECT_NE(width, nullptr) << "no stock editor";
    if (!width) return false;
    HWND dialog = WindowOf(width);
    for (int id = IDC_STOCK_NAME; id <= IDC_MARGIN_BOTTOM; ++id) {
      if (IsWindowEnabled(GetDlgItem(dialog, id))) Put(GetDlgItem(dialog, id), text);
    }
    return Finish(dialog);
  }
};

TEST_F(HostileStock, NewStocksStayInsideTheModel) {
  std::vector<std::wstring> texts = HostileTexts();
  texts.push_back(LongPairs());
  GuardedBlock block(kDevModeSize);
  int taken = 0;
  ExpectTaken(&block, [&] {
    ASSERT_NE(WaitForControl(IDC_STOCK), nullptr);
    for (size_t i = 0; i < texts.size() && !HasFailure(); ++i) {
      SCOPED_TRACE(i);
      taken += TypeIntoEditor(IDC_STOCK_NEW, texts[i]);
      ExpectFormsInsideTheModel();
    }
  });
  // Refused are the two that are blank, the half of a pair, and the user form's name.
  EXPECT_EQ(taken, static_cast<int>(texts.size()) - 4);
}

TEST_F(HostileStock, EditedStockStaysInsideTheModel) {
  GuardedBlock block(kDevModeSize);
  ExpectTaken(&block, [&] {
    AddStockInSheet(L"Shelf 70 x 35");
    for (size_t i = 0; i < HostileTexts().size() && !HasFailure(); ++i) {
      SCOPED_TRACE(i);
      TypeIntoEditor(IDC_STOCK_EDIT, HostileTexts()[i]);
      EXPECT_EQ(CountOf(WaitForControl(IDC_STOCK)), 2);
      ExpectFormsInsideTheModel();
    }
  });
  EXPECT_TRUE(std::wstring_view(block.Mode()->dmFormName) != L"USER");
}

// The user form, whose size goes into the document.
TEST_F(HostileStock, SizeOfTheUserFormStaysInsideTheModel) {
  for (size_t i = 0; i < HostileTexts().size(); ++i) {
    SCOPED_TRACE(i);
    GuardedBlock block(kDevModeSize);
    ExpectTaken(&block, [&] {
      ASSERT_NE(WaitForControl(IDC_STOCK), nullptr);
      EXPECT_TRUE(TypeIntoEditor(IDC_STOCK_EDIT, HostileTexts()[i]));
    });
    ExpectFormsInsideTheModel();
    EXPECT_STREQ(block.Mode()->dmFormName, L"USER");
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace host
