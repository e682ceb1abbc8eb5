#include "fonts/EncodingSettings.h"

#include "fonts/FontRecords.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

constexpr char kEncodings[] = "Settings:Fonts/Encoding";
constexpr char kSelectLogic[] = "Settings:Fonts/Code Page Select Logic";

bool AreEqual(const OStringArray& a, const OStringArray& b) {
  if (a.Count != b.Count) return false;
  for (int32_t i = 0; i < a.Count; ++i) {
    if (!(a[i] == b[i])) return false;
  }
  return true;
}

}  // namespace

void EncodingSettings::Load(PrinterModel* model) {
  RestoreDefaults(model);
  if (model) {
    const PrinterRegistry& store = model->GetStore();
    store.ReadMultiString(kEncodings, &Encodings);
    CodePageSelectLogic = store.ReadInt(kSelectLogic, 0) == 1 ? 1 : 0;
  }
  LoadedSignature = Signature();
}

void EncodingSettings::RestoreDefaults(PrinterModel* model) {
  Encodings.SetSize(0);
  if (model) model->GetEncodings(&Encodings);
  CodePageSelectLogic = 0;
}

bool EncodingSettings::Save(PrinterModel* model) {
  if (!model) return false;
  PrinterRegistry& store = model->GetStore();
  bool done = store.WriteInt(kSelectLogic, CodePageSelectLogic == 1 ? 1 : 0);
  const uint32_t signature = Signature();
  if (signature == LoadedSignature) return done;
  OStringArray ownList;
  model->GetEncodings(&ownList);
  const bool isOwn = AreEqual(Encodings, ownList);
  if (!(isOwn ? store.ForgetValue(kEncodings) : store.WriteMultiString(kEncodings, Encodings))) {
    return false;
  }
  LoadedSignature = signature;
  return done;
}

uint32_t EncodingSettings::Signature() const {
  FontSignature signature;
  for (int32_t i = 0; i < Encodings.Count; ++i) signature.AddText(Encodings[i]);
  return signature.Get();
}

}  // namespace ostvt
