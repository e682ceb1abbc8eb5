// Fonts that the definition knows: groups of resident ones, and those of cards and packs.
#include "model/FontGroupInfo.h"
#include "model/ModelDefinition.h"
#include "model/PrinterModel.h"
#include "model/SectionReader.h"

namespace ostvt {
namespace {

constexpr char kFontGroups[] = "MODEL:Font Groups";
constexpr char kFontGroup[] = "MODEL:FontGroup/";
constexpr char kExpansionFonts[] = "Settings:Expansion Fonts";
constexpr char kExcludedFonts[] = "Settings:Excluded Fonts";

// The values of a group have one name in the store and in the definition, the first one apart.
constexpr char kFonts[] = "Fonts";
constexpr char kFont[] = "Font";
constexpr char kScaleToResolution[] = "Bitmap.ScaleToResolution";
constexpr char kEncodingClass[] = "Encoding.Class";
constexpr char kRestrictedMethods[] = "RestrictedMethods";

constexpr char kGroupFile[] = "FontGroup:";
constexpr char kGroupSuffix[] = ".pfg";

OString GroupName(OString name) {
  name.Replace(kGroupFile, "");
  name.Replace(kGroupSuffix, "");
  return name;
}

void RemoveAll(OStringArray* list, const OString& name) {
  for (int32_t i = list->Count - 1; i >= 0; --i) {
    if ((*list)[i].CompareNoCase(name) == 0) list->RemoveAt(i);
  }
}

// Makes the section that `key` leads to the one in force. False, with nothing changed, if it leads
// nowhere.
bool FollowLink(ModelDefinition& definition, const OString& key) {
  const OString path = definition.GetStringEx(key);
  if (path.IsEmpty()) return false;
  definition.SelectSection(path);
  return true;
}

bool SelectProvider(ModelDefinition& definition, const OString& provider) {
  definition.SelectContext(Context::kFont);
  return FollowLink(definition, "~FontOptions." + provider);
}

// Makes the group's section the one in force and gives its fonts.
void SelectGroup(ModelDefinition& definition, const OString& group, OStringArray* fonts) {
  definition.OpenArchive();
  definition.SelectSection(kGroupFile + group + kGroupSuffix);
  definition.GetListEx(kFont, fonts);
  if (fonts->Count > 0) return;
  definition.SelectSection(kGroupFile + group);
  definition.GetListEx(kFont, fonts);
}

}  // namespace

bool PrinterModel::AllowsCustomFonts() {
  const OString allowed = GetDefinitionString("Font", "~FontOptions.Custom");
  return allowed.IsEmpty() ? CanDownload() : DefinitionFile::ParseBool(allowed, false);
}

bool PrinterModel::AllowsPredefinedFonts() {
  return GetDefinitionBool("Font", "~FontOptions.Predefined", false);
}

void PrinterModel::GetFontProviders(OStringArray* list) {
  Definition->SelectContext(Context::kFont);
  Definition->GetListEx("~FontOptions.Providers", list);
}

void PrinterModel::GetProviderFonts(const OString& provider, OStringArray* list) {
  list->SetSize(0);
  if (SelectProvider(*Definition, provider)) Definition->GetKeysEx(list);
}

OString PrinterModel::GetProviderFontValue(const OString& provider, const OString& font,
                                           const OString& key) {
  if (!SelectProvider(*Definition, provider) || !FollowLink(*Definition, font)) return OString();
  return Definition->GetStringEx(key);
}

void PrinterModel::GetFontGroups(OStringArray* list) {
  PrinterRegistry& store = GetStore();
  if (store.ReadMultiString(kFontGroups, list)) return;
  Definition->SelectContext(Context::kFont);
  Definition->GetListEx(kFonts, list);
  OStringArray expansion;
  store.ReadMultiString(kExpansionFonts, &expansion);
  list->Append(expansion);
  for (int32_t i = 0; i < list->Count; ++i) (*list)[i] = GroupName((*list)[i]);
  OStringArray excluded;
  store.ReadMultiString(kExcludedFonts, &excluded);
  for (int32_t i = 0; i < excluded.Count; ++i) RemoveAll(list, GroupName(excluded[i]));
  RemoveAll(list, OString());  // the store keeps no empty names
  store.WriteMultiString(kFontGroups, *list);
}

bool PrinterModel::GetFontGroupInfo(const OString& group, FontGroupInfo* info) {
  if (group.IsEmpty()) return false;
  PrinterRegistry& store = GetStore();
  const OString key = kFontGroup + store.Escape(group) + "/";
  OStringArray methods;
  if (store.ReadMultiString(key + kFonts, &info->Fonts)) {
    info->ScaleToResolution = store.ReadByte(key + kScaleToResolution, 0) != 0;
    info->EncodingClass = store.ReadString(key + kEncodingClass, OString());
    store.ReadMultiString(key + kRestrictedMethods, &methods);
    info->Restrictions = BitsOf(methods, kPageMethods);
    return true;
  }
  OStringArray fonts;
  SelectGroup(*Definition, group, &fonts);
  if (fonts.Count == 0) return false;
  info->Fonts.Copy(fonts);
  info->ScaleToResolution = Definition->GetBoolEx(kScaleToResolution);
  info->EncodingClass = Definition->GetStringEx(kEncodingClass);
  Definition->GetListEx(kRestrictedMethods, &methods);
  info->Restrictions = BitsOf(methods, kPageMethods);

  store.WriteByte(key + kScaleToResolution, info->ScaleToResolution ? 1 : 0);
  if (!info->EncodingClass.IsEmpty()) {
    store.WriteString(key + kEncodingClass, info->EncodingClass);
  }
  if (methods.Count > 0) store.WriteMultiString(key + kRestrictedMethods, methods);
  // Last: it tells that the others are there.
  store.WriteMultiString(key + kFonts, fonts);
  return true;
}

bool PrinterModel::HasFontGroups() {
  OStringArray groups;
  GetFontGroups(&groups);
  return groups.Count > 0;
}

bool PrinterModel::SetExpansionFonts(const OStringArray& list) {
  if (!GetStore().WriteMultiString(kExpansionFonts, list)) return false;
  Invalidate();
  RebuildEncodings();
  return true;
}

}  // namespace ostvt
