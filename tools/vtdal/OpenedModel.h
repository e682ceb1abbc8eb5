// A printer's model, opened by the tool itself.
#pragma once

#include <memory>
#include <string>

#include "model/PrinterModel.h"

namespace vtdal {

// One at a time.
class OpenedModel {
 public:
  OpenedModel();
  ~OpenedModel();
  OpenedModel(const OpenedModel&) = delete;
  OpenedModel& operator=(const OpenedModel&) = delete;

  // Once. False, with an error printed, if there is no such printer or its driver is another one.
  bool Open(const std::u16string& printer);
  ostvt::PrinterModel* Get() const { return Model.get(); }

 private:
  std::unique_ptr<ostvt::PrinterModel> Model;
};

}  // namespace vtdal
