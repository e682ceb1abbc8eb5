#include "ui/windows/PageSetupPage.h"

#include "core/ArchiveReader.h"
#include "core/DriverPath.h"
#include "language/resource.h"
#include "model/ModelDefinition.h"
#include "model/PrinterModel.h"
#include "settings/DriverSession.h"
#include "ui/StockEditorRules.h"
#include "ui/StockOfDevMode.h"
#include "ui/windows/PreviewPainter.h"
#include "ui/windows/StockEditorDialog.h"
#include "ui/windows/UResourceSet.h"

namespace ostvt {
namespace {

constexpr char kSampleMember[] = "LabelSample.bmp";
constexpr uint32_t kLargestSample = 1 << 20;

}  // namespace

PageSetupPage::~PageSetupPage() {
  if (SamplePicture) DeleteObject(SamplePicture);
}

const char* PageSetupPage::GetHelpTopic() { return "/base/PageSetup.html"; }

void PageSetupPage::OnInitDialog() {
  UPage::OnInitDialog();
  StockBox.Attach(this, IDC_STOCK);
  PresetBox.Attach(this, IDC_PRESET);
  LoadSample();
  if (Session->Model) ShowCopyright();
}

void PageSetupPage::LoadSample() {
  if (!Session->Model) return;
  ArchiveReader* archive = Session->Model->GetDefinition().GetArchive();
  if (!archive) return;
  uint32_t size = 0;
  const uint8_t* data = archive->GetMemberData(kSampleMember, &size, kLargestSample);
  if (ReadSampleBitmap(data, size, &Sample))
    SamplePicture = CreateBitmap(Sample.Width, Sample.Height, 1, 1, Sample.Rows.data());
}

void PageSetupPage::Update(bool initial) {
  if (!Session->Model) return;
  Session->Model->SetDevMode(Settings().GetBlock());
  OpenAboutFirst();
  if (initial || StockListMark) FillStock();
  if (initial || StockControlsMark) ShowStockControls(initial);
  if (initial || PreviewMark) DrawPreview();
  if (initial || PresetListMark) FillPresets();
  SelectPreset();
  ShowLocked();
  StockListMark = StockControlsMark = PreviewMark = PresetListMark = false;
}

// Once, when the page is shown for the first time.
void PageSetupPage::OpenAboutFirst() {
  if (!FirstActivationMark || !Sheet || !DriverOnNtPath) return;
  FirstActivationMark = false;
  if (!Session->IsAboutFirst()) return;
  Session->KeepAboutClosed();
  const auto tabs = reinterpret_cast<HWND>(SendMessageW(Sheet, PSM_GETTABCONTROL, 0, 0));
  const LRESULT count = SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0);
  if (count > 1) PostMessageW(Sheet, PSM_SETCURSEL, static_cast<WPARAM>(count - 1), 0);
}

void PageSetupPage::ShowCopyright() {
  const OString text = Session->Model->GetDefinitionString("Manufacturer", "Copyright");
  SetControlText(IDC_COPYRIGHT, text);
  ShowControl(IDC_COPYRIGHT, !text.IsEmpty());
  ExpandText(IDC_COPYRIGHT);
  ExpandText(IDC_DRIVER_COPYRIGHT);
}

void PageSetupPage::FillStock() {
  StockList& stock = Session->GetStock();
  CurrentStock = FindStockOf(&stock, &Settings(), &CurrentSize);
  UResourceSet& resources = Resources();
  StockBox.SetRedraw(false);
  StockBox.Clear();
  for (StockItem* item = stock.GetFirst(); item; item = item->GetNext()) {
    const StockData& size = item == CurrentStock ? CurrentSize : item->Data();
    if (item->IsUserForm()) UserFormSize = size;
    StockBox.AddItem(StockText(item->Name, resources.FormatMeasure(size.Width),
                               resources.FormatMeasure(size.Height)),
                     item);
  }
  StockBox.SelectData(CurrentStock);
  StockBox.SetRedraw(true);
}

void PageSetupPage::ShowStockControls(bool initial) {
  const bool locked = Session->IsLocked();
  const bool deletable = !locked && CurrentStock && IsStockDeletable(*CurrentStock);
  // No key would reach a button that has the focus and is disabled.
  if (!deletable && GetFocus() == ControlWindow(IDC_STOCK_DELETE))
    SendMessageW(Window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(StockBox.Window), TRUE);
  EnableControl(IDC_STOCK_DELETE, deletable);
  EnableControl(IDC_STOCK_NEW, !locked);
  EnableControl(IDC_STOCK_EDIT, CurrentStock != nullptr);
  if (!initial) return;
  const DevMode& settings = Settings();
  ShowControl(IDC_MIRROR, Session->Model->HasMirror());
  ShowControl(IDC_NEGATIVE, Session->Model->HasInverse());
  SetCheck(IDC_MIRROR, settings.GetMirror());
  SetCheck(IDC_NEGATIVE, settings.GetNegative());
  SetRadio(IDC_ORIENTATION_PORTRAIT, IDC_ORIENTATION_ROTATED_LANDSCAPE,
           IDC_ORIENTATION_PORTRAIT + settings.GetOrientation());
}

void PageSetupPage::DrawPreview() {
  const DevMode& settings = Settings();
  RECT client = {};
  GetClientRect(ControlWindow(IDC_PREVIEW), &client);
  const PreviewSettings shown = {client.right,
                                 client.bottom,
                                 CurrentSize.Width,
                                 CurrentSize.Height,
                                 settings.GetOrientation(),
                                 settings.GetMirror(),
                                 settings.GetNegative()};
  const LabelPreview preview = LayOutPreview(shown, Sample.Width, Sample.Height);
  SetPicture(IDC_PREVIEW, PaintPreview(client.right, client.bottom, preview, SamplePicture), false);
}

void PageSetupPage::FillPresets() {
  PresetBox.SetRedraw(false);
  PresetBox.Clear();
  for (PresetItem* item = Session->GetPresets().GetFirst(); item; item = item->GetNext())
    PresetBox.AddItem(item->Name, item);
  PresetBox.SetRedraw(true);
}

// Any page may have changed the device mode.
void PageSetupPage::SelectPreset() {
  CurrentPreset = Session->GetPresets().FindForDevMode(Settings());
  if (CurrentPreset && !CurrentPreset->GetDevMode().Matches(Settings())) CurrentPreset = nullptr;
  if (!CurrentPreset) {
    PresetBox.SelectItem(-1);
  } else if (PresetBox.GetSelectedData() != CurrentPreset) {
    PresetBox.SelectData(CurrentPreset);
  }
}

void PageSetupPage::ShowLocked() {
  if (!Session->IsLocked()) return;
  EnableControl(IDC_STOCK_NEW, false);
  EnableControl(IDC_STOCK_DELETE, false);
  EnableControl(IDC_PRESETS, false);
  const bool editable =
      CurrentStock && GetStockEditing(*CurrentStock, true, SystemHasForms()).Any();
  SetControlText(IDC_STOCK_EDIT, Text(editable ? IDS_STOCK_EDIT : IDS_STOCK_VIEW));
}

bool PageSetupPage::OnCommand(int32_t id, uint32_t code, LPARAM) {
  if (id == IDC_STOCK || id == IDC_PRESET) {
    if (code != CBN_SELCHANGE) return true;
    if (id == IDC_STOCK) {
      ChooseStock();
    } else {
      ChoosePreset();
    }
    return false;
  }
  if (code != BN_CLICKED) return true;
  switch (id) {
    case IDC_ORIENTATION_PORTRAIT:
    case IDC_ORIENTATION_LANDSCAPE:
    case IDC_ORIENTATION_ROTATED_PORTRAIT:
    case IDC_ORIENTATION_ROTATED_LANDSCAPE:
      // A radio button also says so when it gets the focus.
      if (!IsChecked(id)) return true;
      Settings().SetOrientation(id - IDC_ORIENTATION_PORTRAIT);
      PreviewMark = true;
      return false;
    case IDC_MIRROR:
      Settings().SetMirror(IsChecked(id));
      PreviewMark = true;
      return false;
    case IDC_NEGATIVE:
      Settings().SetNegative(IsChecked(id));
      PreviewMark = true;
      return false;
    case IDC_STOCK_DELETE:
      DeleteStock();
      return false;
    case IDC_STOCK_EDIT:
      EditStock();
      return false;
    case IDC_STOCK_NEW:
      NewStock();
      return false;
    case IDC_ADVANCED:
      OpenAdvanced();
      return false;
    case IDC_PRESETS:
      OpenPresets();
      return false;
    default:
      return true;
  }
}

}  // namespace ostvt
