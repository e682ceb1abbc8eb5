// A printer's stock: the label sizes that it can be asked for by name.
#include "settings/StockList.h"

#include <memory>

#include "tools/vtdal/Commands.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/Lengths.h"
#include "tools/vtdal/OpenedModel.h"
#include "tools/vtdal/SharedEdit.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::OString;
using ostvt::PrinterModel;
using ostvt::StockItem;
using ostvt::StockList;

constexpr const char* kHelp =
    "Usage: vtdal stock list NAME [--json]\n"
    "       vtdal stock show NAME STOCK [--json]\n"
    "       vtdal stock add NAME STOCK SIZE [--left LENGTH] [--right LENGTH] [--top LENGTH]\n"
    "                       [--bottom LENGTH] [--module FILE]\n"
    "       vtdal stock remove NAME STOCK [--module FILE]\n"
    "\n"
    "Shows and changes the stocks of a printer: its label sizes, by their names. All printers of\n"
    "this machine have the same stocks, apart from the user form, whose size is each job's own.\n"
    "\n"
    "  list    all stocks; one without a number is too large for the printer\n"
    "  show    one stock with its margins\n"
    "  add     adds a stock; SIZE is that of the label, as \"100mm x 50mm\" or \"4 x 6 in\"\n"
    "  remove  removes a stock\n"
    "  --json  as JSON, lengths in millimeters\n"
    "\n"
    "  --left, --right, --top, --bottom LENGTH\n"
    "          what can't be printed on, as \"2mm\" (else the model's own at the sides, nothing "
    "at\n"
    "          top and bottom)\n" SHARED_EDIT_HELP
    "\n"
    "Units are mm, cm, in, mils and pts.\n";

// What the lists of papers that programs show have room for.
constexpr size_t kLongestName = 64;
// The user form's names on the driver's two paths.
constexpr const char* kReservedNames[] = {"USER", "User Defined"};

struct MarginOption {
  const char* Name;
  int32_t ostvt::StockData::*Field;
};
constexpr MarginOption kMargins[] = {{"--left", &ostvt::StockData::LeftMargin},
                                     {"--right", &ostvt::StockData::RightMargin},
                                     {"--top", &ostvt::StockData::TopMargin},
                                     {"--bottom", &ostvt::StockData::BottomMargin}};

std::string NameOf(const StockItem& item) { return ToUtf8(item.Name.GetWide()); }

std::string NumberOf(const StockItem& item) {
  return item.PaperId == 0 ? "-" : std::to_string(item.PaperId);
}

const char* KindOf(const StockItem& item) {
  if (item.IsUserForm()) return "user form";
  if (item.IsOfModel()) return "model";
  return item.IsRemovable() ? "removable" : "fixed";
}

// Hidden stock too.
StockItem* Find(const StockList& list, const std::u16string& name) {
  const OString wanted(name.c_str());
  StockItem* item = list.GetFirst();
  while (item && CompareStockNames(item->Name, wanted) != 0) item = item->GetNext();
  return item;
}

void WriteJson(JsonWriter* json, const StockItem& item) {
  const auto length = [json](const char* key, int64_t value) {
    json->Key(key);
    json->Decimal(value, 3);
  };
  json->BeginObject();
  json->Key("name");
  json->String(NameOf(item));
  json->Key("number");
  json->Number(item.PaperId);
  length("widthMm", item.GetPageWidth());
  length("heightMm", item.GetPageHeight());
  length("leftMarginMm", item.LeftMargin);
  length("rightMarginMm", item.RightMargin);
  length("topMarginMm", item.TopMargin);
  length("bottomMarginMm", item.BottomMargin);
  json->Key("userForm");
  json->Boolean(item.IsUserForm());
  json->Key("ofModel");
  json->Boolean(item.IsOfModel());
  json->Key("removable");
  json->Boolean(item.IsRemovable());
  json->EndObject();
}

int ListStock(const Arguments& arguments, const StockList& list) {
  if (arguments.Has("--json")) {
    JsonWriter json;
    json.BeginObject();
    json.Key("printer");
    json.String(arguments.Words()[1]);
    json.Key("stock");
    json.BeginArray();
    for (const StockItem* item = list.GetFirst(); item; item = item->GetNext())
      WriteJson(&json, *item);
    json.EndArray();
    json.EndObject();
    Print(json.Take());
    return kDone;
  }
  std::vector<std::string> columns[4];
  for (const StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    columns[0].push_back(Printable(NameOf(*item)));
    columns[1].push_back(NumberOf(*item));
    columns[2].push_back(SizeText(item->GetPageWidth(), item->GetPageHeight()));
    columns[3].push_back(KindOf(*item));
  }
  PrintColumns({"Stock", "Number", "Size", "Kind"},
               {columns[0], columns[1], columns[2], columns[3]});
  return kDone;
}

int ShowStock(const Arguments& arguments, const StockItem& item) {
  if (arguments.Has("--json")) {
    JsonWriter json;
    WriteJson(&json, item);
    Print(json.Take());
    return kDone;
  }
  PrintRows({{"Name", "Number", "Size", "Printable", "Left margin", "Right margin", "Top margin",
              "Bottom margin", "Kind"},
             {Printable(NameOf(item)), NumberOf(item),
              SizeText(item.GetPageWidth(), item.GetPageHeight()),
              SizeText(item.Width, item.Height), Millimetres(item.LeftMargin) + " mm",
              Millimetres(item.RightMargin) + " mm", Millimetres(item.TopMargin) + " mm",
              Millimetres(item.BottomMargin) + " mm", KindOf(item)}});
  return kDone;
}

// "" or what is wrong with the name of a new stock.
std::string NameProblem(const StockList& list, const std::u16string& name) {
  const OString text(name.c_str());
  if (text.IsEmpty()) return "a stock needs a name";
  if (name.size() > kLongestName) {
    return "the name has " + std::to_string(name.size()) + " characters; " +
           std::to_string(kLongestName) + " are allowed";
  }
  for (const char* reserved : kReservedNames) {
    if (text.CompareNoCase(reserved) == 0)
      return "'" + Printable(name) + "' is the user form's name";
  }
  if (Find(list, name)) return "there is a stock named '" + Printable(name) + "' already";
  return "";
}

// "" or what is wrong with the size of a new stock.
std::string SizeProblem(PrinterModel* model, const StockItem& item) {
  const int32_t width = item.GetPageWidth();
  const int32_t height = item.GetPageHeight();
  const int32_t least[] = {model->GetMinimumX().ToMicrons(), model->GetMinimumY().ToMicrons()};
  const int32_t most[] = {model->GetMaximumX().ToMicrons(), model->GetMaximumY().ToMicrons()};
  if (width < least[0] || height < least[1] || width > most[0] || height > most[1]) {
    return SizeText(width, height) + " is out of the printer's range, " +
           SizeText(least[0], least[1]) + " to " + SizeText(most[0], most[1]);
  }
  if (item.Width <= 0 || item.Height <= 0) return "the margins leave nothing to print on";
  return "";
}

// The rest of the line, so that the size needs no quotes.
std::u16string SizeWords(const Arguments& arguments) {
  std::u16string text;
  for (size_t i = 3; i < arguments.Words().size(); i++) text += arguments.Words()[i] + u" ";
  return text;
}

int Save(StockList* list, PrinterModel* model) {
  if (list->Save(model)) return kDone;
  PrintError("can't write the stocks");
  return kFailed;
}

int AddStock(const Arguments& arguments, PrinterModel* model, StockList* list) {
  auto item = std::make_unique<StockItem>();
  const std::u16string& name = arguments.Words()[2];
  item->Name = OString(name.c_str());
  item->LeftMargin = item->RightMargin = model->GetEdgeAllowance().ToMicrons();
  for (const MarginOption& margin : kMargins) {
    const std::u16string text = arguments.Value(margin.Name);
    int32_t length = 0;
    if (arguments.Has(margin.Name) && !ParseLength(text, &length))
      return UsageError("stock", "'" + Printable(text) + "' is no length, as \"2mm\"");
    if (arguments.Has(margin.Name)) (*item).*margin.Field = length;
  }
  const std::u16string size = SizeWords(arguments);
  int32_t width = 0;
  int32_t height = 0;
  if (!ParseSize(size, &width, &height)) {
    return UsageError("stock", "'" + Printable(size.substr(0, size.size() - 1)) +
                                   "' is no size, as \"100mm x 50mm\"");
  }
  item->Width = width - item->LeftMargin - item->RightMargin;
  item->Height = height - item->TopMargin - item->BottomMargin;
  std::string problem = NameProblem(*list, name);
  if (problem.empty()) problem = SizeProblem(model, *item);
  if (!problem.empty()) {
    PrintError(problem);
    return kFailed;
  }
  list->AddTail(item.release());
  list->Normalize();
  return Save(list, model);
}

int RemoveStock(const Arguments& arguments, PrinterModel* model, StockList* list, StockItem* item) {
  if (item->IsUserForm() || !item->IsRemovable()) {
    PrintError("the stock '" + Printable(arguments.Words()[2]) + "' can't be removed");
    return kFailed;
  }
  delete item;
  return Save(list, model);
}

struct Action {
  const char16_t* Name;
  size_t LeastWords;
  size_t MostWords;
};
constexpr Action kActions[] = {{u"list", 2, 2}, {u"show", 3, 3}, {u"add", 4, 8}, {u"remove", 3, 3}};
enum { kList, kShow, kAdd, kRemove, kActionCount };

int RunStock(const Arguments& arguments) {
  const std::vector<std::u16string>& words = arguments.Words();
  int action = 0;
  while (action < kActionCount && words[0] != kActions[action].Name) action++;
  if (action == kActionCount)
    return UsageError("stock", "unknown action '" + Printable(words[0]) + "'");
  if (words.size() < kActions[action].LeastWords) return UsageError("stock", "too few arguments");
  const size_t most = kActions[action].MostWords;
  if (words.size() > most)
    return UsageError("stock", "unexpected argument '" + Printable(words[most]) + "'");
  const bool changes = action == kAdd || action == kRemove;
  if (changes && arguments.Has("--json"))
    return UsageError("stock", ToUtf8(words[0]) + " prints nothing, so it takes no --json");
  for (const MarginOption& margin : kMargins) {
    if (action != kAdd && arguments.Has(margin.Name))
      return UsageError("stock", std::string(margin.Name) + " goes with add only");
  }

  SharedEdit edit(arguments, words[1]);
  if (changes) edit.Take();
  OpenedModel model;
  if (!model.Open(words[1])) return kFailed;
  StockList list;
  list.Load(model.Get());
  if (action == kList) return ListStock(arguments, list);
  if (action == kAdd) return edit.Give(AddStock(arguments, model.Get(), &list));
  StockItem* item = Find(list, words[2]);
  if (!item) {
    PrintError("no stock named '" + Printable(words[2]) + "'");
    return kFailed;
  }
  if (action == kShow) return ShowStock(arguments, *item);
  return edit.Give(RemoveStock(arguments, model.Get(), &list, item));
}

}  // namespace

std::vector<Command> StockCommands() {
  return {{"stock",
           kHelp,
           1,
           8,
           {{"--json", false},
            {"--left", true},
            {"--right", true},
            {"--top", true},
            {"--bottom", true},
            {"--module", true}},
           RunStock}};
}

}  // namespace vtdal
