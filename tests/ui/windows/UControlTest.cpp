#include "ui/windows/UControl.h"

#include <gtest/gtest.h>

#include "tests/ui/windows/UiFixture.h"
#include "ui/windows/UComboBox.h"
#include "ui/windows/UEdit.h"
#include "ui/windows/UListBox.h"
#include "ui/windows/UListView.h"
#include "ui/windows/UTreeView.h"

namespace ostvt::test {
namespace {

constexpr int kControl = 100;

class NotingControl : public UControl {
 public:
  explicit NotingControl(std::string* log) : Log(log) {}
  void OnAttach() override { Note("attach"); }
  void OnAdded() override { Note("added"); }
  void OnDestroy() override { Note("destroy"); }
  void OnTimer(uintptr_t id) override { Note("timer " + std::to_string(id)); }
  bool OnMouseMove(uint32_t keys, POINT at) override { return NoteMouse("move", keys, at); }
  bool OnLeftDown(uint32_t keys, POINT at) override { return NoteMouse("left down", keys, at); }
  bool OnLeftUp(uint32_t keys, POINT at) override { return NoteMouse("left up", keys, at); }
  bool OnLeftDouble(uint32_t keys, POINT at) override { return NoteMouse("left twice", keys, at); }
  bool OnRightDown(uint32_t keys, POINT at) override { return NoteMouse("right down", keys, at); }
  bool OnRightUp(uint32_t keys, POINT at) override { return NoteMouse("right up", keys, at); }
  bool OnRightDouble(uint32_t keys, POINT at) override {
    return NoteMouse("right twice", keys, at);
  }
  bool OnKeyDown(uint32_t key, uint32_t repeat, uint32_t flags) override {
    return NoteKey("key down", key, repeat, flags);
  }
  bool OnKeyUp(uint32_t key, uint32_t repeat, uint32_t flags) override {
    return NoteKey("key up", key, repeat, flags);
  }
  bool OnChar(uint32_t key, uint32_t repeat, uint32_t flags) override {
    return NoteKey("char", key, repeat, flags);
  }
  bool Consumes = true;

 private:
  void Note(const std::string& call) { *Log += call + ";"; }
  bool NoteMouse(const char* what, uint32_t keys, POINT at) {
    Note(std::string(what) + " " + std::to_string(keys) + " " + std::to_string(at.x) + " " +
         std::to_string(at.y));
    return Consumes;
  }
  bool NoteKey(const char* what, uint32_t key, uint32_t repeat, uint32_t flags) {
    Note(std::string(what) + " " + std::to_string(key) + " " + std::to_string(repeat) + " " +
         std::to_string(flags));
    return Consumes;
  }

  std::string* Log;
};

// A page over a bare window, for controls that are created in it.
class UControlTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CommonControls();
    Page.Window = CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(nullptr, Page.Window);
  }
  void TearDown() override { DestroyWindow(Page.Window); }
  bool Create(UControl& control, const char16_t* className, uint32_t style = 0,
              int32_t id = kControl) {
    return control.Create(&Page, id, className, style, 0, {0, 0, 100, 100});
  }
  static std::string Taken(std::string* log) {
    std::string text;
    text.swap(*log);
    return text;
  }

  UPage Page;
};

TEST_F(UControlTest, AttachedControlsJoinThePagesList) {
  CreateWindowExW(0, L"Edit", L"abc", WS_CHILD, 0, 0, 50, 20, Page.Window,
                  reinterpret_cast<HMENU>(kControl), nullptr, nullptr);
  std::string log;
  NotingControl control(&log), second(&log);
  EXPECT_TRUE(control.Attach(&Page, kControl));
  EXPECT_EQ("attach;added;", log);
  EXPECT_EQ(&control, Page.FindControl(kControl));
  EXPECT_EQ(nullptr, Page.FindControl(kControl + 1));
  EXPECT_STREQ("abc", control.GetText().GetNarrow());
  EXPECT_FALSE(second.Attach(&Page, kControl));  // has a wrapper
  EXPECT_FALSE(second.Attach(&Page, kControl + 1));
  EXPECT_FALSE(control.Attach(&Page, kControl));
  EXPECT_EQ(1, Page.GetControlCount());
}

TEST_F(UControlTest, ItsEndDestroysTheWindow) {
  std::string log;
  HWND window = nullptr;
  {
    NotingControl control(&log);
    ASSERT_TRUE(Create(control, u"Edit"));
    window = control.Window;
    EXPECT_TRUE(IsWindow(window));
  }
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(0, Page.GetControlCount());
}

TEST_F(UControlTest, ItKnowsWhenItsWindowIsGone) {
  std::string log;
  NotingControl control(&log);
  ASSERT_TRUE(Create(control, u"Edit"));
  Taken(&log);
  DestroyWindow(control.Window);
  EXPECT_EQ("destroy;", log);
  EXPECT_EQ(nullptr, control.Window);
  control.SetText("nothing");
  EXPECT_EQ(0, control.Send(WM_GETTEXTLENGTH));
  EXPECT_TRUE(control.GetText().IsEmpty());
}

TEST_F(UControlTest, MouseAndKeysReachIt) {
  std::string log;
  NotingControl control(&log);
  ASSERT_TRUE(Create(control, u"Static"));
  Taken(&log);
  const LPARAM place = MAKELPARAM(3, -4);
  for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK,
                             WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK})
    control.Send(static_cast<UINT>(message), MK_SHIFT, place);
  EXPECT_EQ(
      "move 4 3 -4;left down 4 3 -4;left up 4 3 -4;left twice 4 3 -4;right down 4 3 -4;"
      "right up 4 3 -4;right twice 4 3 -4;",
      Taken(&log));
  for (const UINT message : {WM_KEYDOWN, WM_KEYUP, WM_CHAR})
    control.Send(static_cast<UINT>(message), 65, MAKELPARAM(2, 30));
  EXPECT_EQ("key down 65 2 30;key up 65 2 30;char 65 2 30;", Taken(&log));
  control.Send(WM_TIMER, 12);
  EXPECT_EQ("timer 12;", Taken(&log));
}

TEST_F(UControlTest, WhatItConsumesTheControlNeverSees) {
  std::string log;
  NotingControl control(&log);
  ASSERT_TRUE(Create(control, u"Edit"));
  control.Send(WM_CHAR, u'a', 1);
  EXPECT_TRUE(control.GetText().IsEmpty());
  control.Consumes = false;
  control.Send(WM_CHAR, u'a', 1);
  EXPECT_STREQ("a", control.GetText().GetNarrow());
}

TEST_F(UControlTest, EditsAreToldApartByTheirClass) {
  platform::LibraryHandle library = platform::OpenLibrary(u"riched20.dll");
  UEdit plain;
  ASSERT_TRUE(Create(plain, u"Edit"));
  EXPECT_FALSE(plain.IsRich());
  {
    URichEdit rich;
    ASSERT_TRUE(Create(rich, u"RichEdit20W", ES_MULTILINE, kControl + 1));
    EXPECT_TRUE(rich.IsRich());
    rich.SetText(u"one\r\ntwo");
    EXPECT_STREQ("one\r\ntwo", rich.GetPlainText().GetNarrow());
    rich.Select(0, 3);
    rich.Insert("1");
    EXPECT_STREQ("1\r\ntwo", rich.GetPlainText().GetNarrow());
  }
  platform::CloseLibrary(library);
}

TEST_F(UControlTest, NumbersInEditsStopGrowing) {
  UEdit edit;
  ASSERT_TRUE(Create(edit, u"Edit", ES_AUTOHSCROLL));
  const struct {
    const char* Text;
    int32_t Number;
  } rows[] = {
      {"12", 12},
      {" \t-12 mm", -12},
      {"+7", 7},
      {"", 0},
      {"x1", 0},
      {"2000000001", 2000000000},
      {"-99999999999999999999", -2000000000},
  };
  for (const auto& row : rows) {
    edit.SetText(row.Text);
    EXPECT_EQ(row.Number, edit.GetNumber()) << row.Text;
  }
  edit.SetNumber(-15);
  EXPECT_STREQ("-15", edit.GetText().GetNarrow());
}

TEST_F(UControlTest, TheUpDownOfAnEditHasItsIdWithABitMore) {
  UEdit edit;
  ASSERT_TRUE(Create(edit, u"Edit"));
  HWND upDown = CreateWindowExW(0, L"msctls_updown32", L"", WS_CHILD, 0, 0, 10, 10, Page.Window,
                                reinterpret_cast<HMENU>(kControl | 16384), nullptr, nullptr);
  ASSERT_NE(nullptr, upDown);
  edit.SetRange(-3, 70000);
  int minimum = 0, maximum = 0;
  SendMessageW(upDown, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&minimum),
               reinterpret_cast<LPARAM>(&maximum));
  EXPECT_EQ(-3, minimum);
  EXPECT_EQ(70000, maximum);
}

TEST_F(UControlTest, EditsSelectAndLimit) {
  UEdit edit;
  ASSERT_TRUE(Create(edit, u"Edit", ES_AUTOHSCROLL));
  edit.LimitText(3);
  for (const char16_t unit : {u'a', u'b', u'c', u'd'}) edit.Send(WM_CHAR, unit, 1);
  EXPECT_STREQ("abc", edit.GetText().GetNarrow());
  EXPECT_TRUE(edit.IsModified());
  edit.SetModified(false);
  EXPECT_FALSE(edit.IsModified());
  edit.SelectAll();
  int32_t first = 7, last = 7;
  edit.GetSelection(&first, &last);
  EXPECT_EQ(0, first);
  EXPECT_EQ(3, last);
  EXPECT_EQ(3, edit.GetLength());
}

template <typename Box>
void ExpectItemBox(Box& box) {
  int first = 0, second = 0;
  EXPECT_EQ(0, box.AddItem("alpha", &first));
  EXPECT_EQ(1, box.AddItem("beta", &second));
  EXPECT_EQ(1, box.InsertItem(1, "between"));
  EXPECT_EQ(3, box.GetCount());
  EXPECT_STREQ("between", box.GetItemText(1).GetNarrow());
  EXPECT_TRUE(box.GetItemText(3).IsEmpty());
  EXPECT_TRUE(box.GetItemText(-1).IsEmpty());
  EXPECT_EQ(&second, box.GetItemData(2));
  EXPECT_EQ(nullptr, box.GetItemData(3));
  EXPECT_EQ(-1, box.GetSelected());
  EXPECT_EQ(nullptr, box.GetSelectedData());
  EXPECT_TRUE(box.SelectData(&second));
  EXPECT_EQ(2, box.GetSelected());
  EXPECT_EQ(&second, box.GetSelectedData());
  EXPECT_FALSE(box.SelectData(&box));
  EXPECT_EQ(-1, box.GetSelected());
  EXPECT_EQ(0, box.FindItem("ALPHA"));
  EXPECT_EQ(-1, box.FindItem("alp"));
  box.RemoveItem(0);
  EXPECT_EQ(2, box.GetCount());
  box.Clear();
  EXPECT_EQ(0, box.GetCount());
}

TEST_F(UControlTest, ComboBoxesHoldItems) {
  UComboBox box;
  ASSERT_TRUE(Create(box, u"ComboBox", CBS_DROPDOWNLIST));
  ExpectItemBox(box);
}

TEST_F(UControlTest, ListBoxesHoldItems) {
  UListBox box;
  ASSERT_TRUE(Create(box, u"ListBox"));
  ExpectItemBox(box);
}

TEST_F(UControlTest, ListBoxesMaySelectMany) {
  UListBox box;
  ASSERT_TRUE(Create(box, u"ListBox", LBS_MULTIPLESEL));
  for (const char* text : {"a", "b", "c"}) box.AddItem(text);
  box.SelectItem(0, true);
  box.SelectItem(2, true);
  EXPECT_EQ(2, box.GetSelectedCount());
  EXPECT_FALSE(box.IsItemSelected(1));
  EXPECT_TRUE(box.IsItemSelected(2));
}

TEST_F(UControlTest, BoxesWithoutAWindowAreEmpty) {
  UComboBox box;
  EXPECT_EQ(-1, box.AddItem("a"));
  EXPECT_EQ(0, box.GetCount());
  EXPECT_EQ(-1, box.GetSelected());
  EXPECT_EQ(-1, box.FindItem("a"));
}

TEST_F(UControlTest, ListViewsHoldItemsInColumns) {
  UListView list;
  ASSERT_TRUE(Create(list, u"SysListView32", LVS_REPORT));
  list.AddColumn(0, "Name", 60);
  list.AddColumn(1, "Value", 40, true);
  EXPECT_EQ(60, list.GetColumnWidth(0));
  int first = 0, second = 0;
  EXPECT_EQ(0, list.AddItem("one", &first));
  EXPECT_EQ(1, list.AddItem("two", &second));
  list.SetItemText(1, 1, "second value");
  EXPECT_STREQ("second value", list.GetItemText(1, 1).GetNarrow());
  EXPECT_STREQ("one", list.GetItemText(0).GetNarrow());
  EXPECT_EQ(&second, list.GetItemData(1));
  EXPECT_EQ(nullptr, list.GetItemData(2));
  EXPECT_EQ(1, list.FindData(&second));
  EXPECT_EQ(-1, list.GetSelected());
  list.ShowItem(1);
  EXPECT_EQ(1, list.GetSelected());
  list.SelectItem(-1, true);
  EXPECT_EQ(2, list.GetSelectedCount());
  EXPECT_EQ(1, list.GetNextSelected(0));
  list.SetExtendedStyle(LVS_EX_CHECKBOXES);
  EXPECT_FALSE(list.IsItemChecked(0));
  list.CheckItem(0, true);
  EXPECT_TRUE(list.IsItemChecked(0));
  list.RemoveItem(0);
  EXPECT_EQ(1, list.GetCount());
  list.RemoveColumns();
  list.Clear();
  EXPECT_EQ(0, list.GetCount());
}

TEST_F(UControlTest, TreeViewsHoldBranches) {
  UTreeView tree;
  ASSERT_TRUE(Create(tree, u"SysTreeView32"));
  int data = 0;
  HTREEITEM root = tree.AddItem(nullptr, "root", &data);
  HTREEITEM first = tree.AddItem(root, "first");
  HTREEITEM second = tree.AddItem(root, "second");
  EXPECT_EQ(root, tree.GetRoot());
  EXPECT_EQ(first, tree.GetChild(root));
  EXPECT_EQ(second, tree.GetNext(first));
  EXPECT_EQ(root, tree.GetParent(second));
  EXPECT_EQ(&data, tree.GetItemData(root));
  EXPECT_STREQ("second", tree.GetItemText(second).GetNarrow());
  tree.SetItemText(second, "renamed");
  EXPECT_STREQ("renamed", tree.GetItemText(second).GetNarrow());
  tree.SelectItem(second);
  EXPECT_EQ(second, tree.GetSelected());
  tree.RemoveItem(nullptr);
  EXPECT_EQ(root, tree.GetRoot());
  tree.RemoveItem(first);
  EXPECT_EQ(second, tree.GetChild(root));
  tree.Clear();
  EXPECT_EQ(nullptr, tree.GetRoot());
}

}  // namespace
}  // namespace ostvt::test
