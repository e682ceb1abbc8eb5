// Attributes of the line that opens a text record: "<stock model='A*;B' driver='ost'>".
#pragma once

#include "core/OString.h"

namespace ostvt {

// The text between the next two single quotes behind `name`, which has a blank before it and a "="
// after it, blanks allowed. Names are exact. Empty if anything of that is missing.
OString GetAttribute(const OString& line, const OString& name);

// True if the record is meant for a printer whose driver is `modelName` and whose family code is
// `modelId`. "model" is a list, separated by ";", of names in which "*" and "?" stand for others;
// without it, "driver" is such a list for the family. With neither, the record is for all. Letters
// count without their case.
bool MatchesModelAttributes(const OString& line, const OString& modelName, const OString& modelId);

}  // namespace ostvt
