// The editor of a stock in a real window.
#include "ui/windows/StockEditorDialog.h"

#include "tests/ui/windows/PagesFixture.h"

namespace ostvt::test {
namespace {

class StockEditorDialogTest : public PagesTest {
 protected:
  void SetUp() override {
    PagesTest::SetUp();
    Stock.Data() = {50000, 25000, 1000, 2000, 0, 0, kStockRemovable};
    Stock.Name = "Shelf";
  }
  // The dialog's result.
  int Run(DialogDriver::Step step) {
    if (!Printer) AddLabelPrinter();
    User.Expect(std::move(step));
    Session().DialogArgument = &Stock;
    return RunSessionDialog(&Session(), nullptr, "*:PAGE_SETUP/^EDIT_STOCK",
                            StartPage<StockEditorDialog>);
  }
  void AddCenteredPrinter() {
    ModelText text = WideModelText();
    text.Model += "Stock.Tracking=Center\n";
    AddLabelPrinter(text);
  }
  static std::string Text(const StockItem& stock) {
    return Utf8Name(stock.Name) + ":" + std::to_string(stock.LeftMargin) + "+" +
           std::to_string(stock.Width) + "+" + std::to_string(stock.RightMargin) + "," +
           std::to_string(stock.TopMargin) + "+" + std::to_string(stock.Height) + "+" +
           std::to_string(stock.BottomMargin);
  }

  DialogDriver User;
  StockItem Stock;
};

TEST_F(StockEditorDialogTest, OkWithoutAChangeKeepsEveryUnit) {
  Stock.Width = 50012;
  Stock.LeftMargin = 1034;
  const std::string before = Text(Stock);
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              EXPECT_EQ("Shelf", Narrow(dialog, IDC_STOCK_NAME));
              EXPECT_EQ("50.0 mm", Narrow(dialog, IDC_STOCK_WIDTH));
              EXPECT_EQ("1.0 mm", Narrow(dialog, IDC_MARGIN_LEFT));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ(before, Text(Stock));
}

TEST_F(StockEditorDialogTest, CancelKeepsTheStock) {
  const std::string before = Text(Stock);
  EXPECT_EQ(IDCANCEL, Run([](HWND dialog) {
              Type(dialog, IDC_STOCK_NAME, L"X");
              Type(dialog, IDC_STOCK_WIDTH, L"70");
              Press(dialog, IDCANCEL);
            }));
  EXPECT_EQ(before, Text(Stock));
}

TEST_F(StockEditorDialogTest, FieldShowsWhatCameOfIt) {
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              Type(dialog, IDC_STOCK_WIDTH, L"1 mm");
              EXPECT_EQ("6.4 mm", Narrow(dialog, IDC_STOCK_WIDTH));
              // 110 mm less the right margin: the rule takes the excess off that first.
              Type(dialog, IDC_STOCK_WIDTH, L"109 mm");
              EXPECT_EQ("1.0 mm", Narrow(dialog, IDC_MARGIN_LEFT));
              EXPECT_EQ("0.0 mm", Narrow(dialog, IDC_MARGIN_RIGHT));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("Shelf:1000+109000+0,0+25000+0", Text(Stock));
}

TEST_F(StockEditorDialogTest, EnterTakesTheFieldThatHasTheFocus) {
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              SetDlgItemTextW(dialog, IDC_STOCK_HEIGHT, L"4 cm");
              Press(dialog, IDOK);
            }));
  EXPECT_EQ(40000, Stock.Height);
}

TEST_F(StockEditorDialogTest, LinkedMarginShowsTheSameTextWhileItIsTyped) {
  AddCenteredPrinter();
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              SetDlgItemTextW(dialog, IDC_MARGIN_RIGHT, L"3,");
              EXPECT_EQ("3,", Narrow(dialog, IDC_MARGIN_LEFT));
              Type(dialog, IDC_MARGIN_RIGHT, L"3 mm");
              EXPECT_EQ("3.0 mm", Narrow(dialog, IDC_MARGIN_LEFT));
              EXPECT_EQ("3.0 mm", Narrow(dialog, IDC_MARGIN_RIGHT));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("Shelf:3000+50000+3000,0+25000+0", Text(Stock));
}

TEST_F(StockEditorDialogTest, MarginsThatAreNotLinkedStayApart) {
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              Type(dialog, IDC_MARGIN_LEFT, L"3 mm");
              EXPECT_EQ("2.0 mm", Narrow(dialog, IDC_MARGIN_RIGHT));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("Shelf:3000+50000+2000,0+25000+0", Text(Stock));
}

TEST_F(StockEditorDialogTest, StockNamedUserInLowerCaseIsRefusedByTheEditor) {
  User.Answer(IDOK);
  EXPECT_EQ(IDCANCEL, Run([](HWND dialog) {
              Type(dialog, IDC_STOCK_NAME, L"user");
              Press(dialog, IDOK);
              EXPECT_TRUE(IsWindow(dialog));
              EXPECT_EQ("New stock", Narrow(dialog, IDC_STOCK_NAME));
              EXPECT_EQ(GetDlgItem(dialog, IDC_STOCK_NAME), GetFocus());
              Press(dialog, IDCANCEL);
            }));
  ASSERT_EQ(1u, User.Messages.size());
  EXPECT_EQ("Name of the Stock|The name \"user\" is reserved. Please choose another name.",
            User.Messages[0]);
}

TEST_F(StockEditorDialogTest, EmptyNameIsRefused) {
  User.Answer(IDOK);
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              Type(dialog, IDC_STOCK_NAME, L"");
              Press(dialog, IDOK);
              EXPECT_TRUE(IsWindow(dialog));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("Name of the Stock|Please enter a name for the stock.", User.Messages.at(0));
  EXPECT_EQ("New stock", Utf8Name(Stock.Name));
}

TEST_F(StockEditorDialogTest, NameThatAnotherStockHasIsRefused) {
  AddLabelPrinter();
  auto* other = new StockItem;
  other->Data() = Stock.Data();
  other->Name = "Tag";
  Session().GetStock().AddTail(other);
  User.Expect([](HWND dialog) {
    Type(dialog, IDC_STOCK_NAME, L"Tag");
    Press(dialog, IDOK);
    EXPECT_TRUE(IsWindow(dialog));
    Press(dialog, IDCANCEL);
  });
  User.Answer(IDOK);
  Session().DialogArgument = &Stock;
  EXPECT_EQ(IDCANCEL, RunSessionDialog(&Session(), nullptr, "*:PAGE_SETUP/^EDIT_STOCK",
                                       StartPage<StockEditorDialog>));
  EXPECT_STREQ("Shelf", Stock.Name.GetNarrow());
}

TEST_F(StockEditorDialogTest, NameIsTestedAsItIsKept) {
  User.Answer(IDOK);
  User.Answer(IDOK);
  EXPECT_EQ(IDCANCEL, Run([](HWND dialog) {
              const std::wstring blanks(31, L' ');
              Type(dialog, IDC_STOCK_NAME, blanks + L"x");
              Press(dialog, IDOK);
              Type(dialog, IDC_STOCK_NAME, L"USER" + blanks + L"x");
              Press(dialog, IDOK);
              Press(dialog, IDCANCEL);
            }));
}

TEST_F(StockEditorDialogTest, NameOfTheUserFormIsNotTested) {
  Stock.Flags = kStockUserForm;
  Stock.Name = "USER";
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              EXPECT_FALSE(IsEnabled(dialog, IDC_STOCK_NAME));
              EXPECT_TRUE(IsEnabled(dialog, IDC_STOCK_WIDTH));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("USER", Utf8Name(Stock.Name));
}

TEST_F(StockEditorDialogTest, StockOfTheModelHasOnlyItsMarginsEdited) {
  Stock.Flags = kStockOfModel;
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              EXPECT_FALSE(IsEnabled(dialog, IDC_STOCK_NAME));
              EXPECT_FALSE(IsEnabled(dialog, IDC_STOCK_WIDTH));
              EXPECT_FALSE(IsEnabled(dialog, IDC_STOCK_HEIGHT));
              EXPECT_TRUE(IsEnabled(dialog, IDC_MARGIN_TOP));
              Press(dialog, IDOK);
            }));
}

TEST_F(StockEditorDialogTest, EditsTakeAsMuchAsCanBeTyped) {
  Run([](HWND dialog) {
    EXPECT_EQ(31, SendDlgItemMessageW(dialog, IDC_STOCK_NAME, EM_GETLIMITTEXT, 0, 0));
    EXPECT_EQ(16, SendDlgItemMessageW(dialog, IDC_MARGIN_LEFT, EM_GETLIMITTEXT, 0, 0));
    EXPECT_EQ(16, SendDlgItemMessageW(dialog, IDC_MARGIN_BOTTOM, EM_GETLIMITTEXT, 0, 0));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(StockEditorDialogTest, HostileTextStaysInsideTheLimits) {
  for (int i = 0; i < 4; ++i) User.Answer(IDOK);
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              for (const std::wstring& text : HostileTexts()) {
                for (int id = IDC_STOCK_WIDTH; id <= IDC_MARGIN_BOTTOM; ++id) {
                  // One box of that length is enough: the system takes seconds to lay it out.
                  if (text.size() < 1000 || id == IDC_STOCK_WIDTH) Type(dialog, id, text);
                }
              }
              // No name is left of these, and "New stock" takes its place.
              for (const wchar_t* name : {L"", L" ", L"USER", L"User Defined"}) {
                Type(dialog, IDC_STOCK_NAME, name);
                Press(dialog, IDOK);
              }
              Type(dialog, IDC_STOCK_NAME, std::wstring(65536, L'%'));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ(31, Stock.Name.Length());
  const auto page = int64_t{Stock.LeftMargin} + Stock.Width + Stock.RightMargin;
  EXPECT_GE(Stock.Width, 6350);
  EXPECT_LE(page, 110000);
  EXPECT_LE(int64_t{Stock.TopMargin} + Stock.Height + Stock.BottomMargin, 500000);
  EXPECT_GE(Stock.LeftMargin, 0);
  EXPECT_GE(Stock.TopMargin, 0);
}

TEST_F(StockEditorDialogTest, NameIsNeverCutInsideAPair) {
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              SetDlgItemTextW(dialog, IDC_STOCK_NAME,
                              (std::wstring(30, L'x') + L"\xD83D\xDE00").c_str());
              Press(dialog, IDOK);
            }));
  EXPECT_EQ(30, Stock.Name.Length());
}

TEST_F(StockEditorDialogTest, PercentSignsInANameAreText) {
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              Type(dialog, IDC_STOCK_NAME, L"%s%n");
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("%s%n", Utf8Name(Stock.Name));
}

}  // namespace
}  // namespace ostvt::test
