// A printer with a model that nothing of the surroundings can change, in a store of its own.
#pragma once

#include <cstdlib>
#include <memory>

#include "model/Caches.h"
#include "model/PrinterModel.h"
#include "platform/Spooler.h"
#include "store/PrinterId.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/ZipBuilder.h"

namespace ostvt::fuzz {

class FuzzModel {
 public:
  FuzzModel() {
    setenv("OSTVT_STORE_DIR", Directory.Path().c_str(), 1);
    OpenCaches();
    test::ZipBuilder base;
    base.Add("Driver.d", "[Fuzz]\nModel=Model:M\n");
    base.WriteTo(Directory.Path("vt#base.ddz"));
    test::ZipBuilder family;
    family.Add("Model.d",
               "[M]\nStock.Default.X=4 in\nStock.Default.Y=6 in\nStock.Maximum.X=4.2 in\n"
               "Stock.Maximum.Y=20 in\nResolution=203,300x150\n"
               "~TopOfForm.Maximum=10 mm\nDrawing=Drawing:D\nBarCode=BarCode:B\nRFID=RFID:R\n");
    family.Add("Drawing.d", "[D]\nTransform.Mirror=true\n");
    family.Add("BarCode.d", "[B]\nCode39=Yes\nCode128=Yes\nQRCode=Yes\nQRCode.Mode=Manual\n");
    family.Add("RFID.d", "[R]\nEPCGen2=Yes\nEPCGen2.Types=Class1\n");
    family.WriteTo(Directory.Path("vt#ost.ddz"));
    platform::DriverRecord driver;
    driver.Name = u"Fuzz";
    driver.DriverPath = Directory.WidePath(u"libostvt.so");
    driver.ConfigFile = driver.DriverPath;
    driver.DataFile = Directory.WidePath(u"ostvt.dat");
    platform::AddDriver(driver);
    platform::AddPrinter({u"Fuzz", u"Fuzz", u"FILE:", u""});
    PrinterId id("Fuzz");
    Model.reset(CreatePrinterModel(id));
    if (!Model || Model->GetDefaultResolutionX() != 203) abort();
  }
  test::TempDirectory Directory;
  std::unique_ptr<PrinterModel> Model;
};

inline PrinterModel* TheModel() {
  static FuzzModel model;
  return model.Model.get();
}

}  // namespace ostvt::fuzz
