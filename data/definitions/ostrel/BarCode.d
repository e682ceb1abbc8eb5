! The bar codes that the printer makes by itself. A symbology's name switches it on; NAME.WORD is one of
! its options. One of these WORDs alone holds for every symbology that has none of its own.
!
! Color               bars can be coloured
! RestrictedMethods   ways of printing in which it can't be used: Serialization, VariableData, Static,
!                     TemplateFile
! Ratio               wide to narrow bar: Variable, 2:1, 11:5, 9:4, 7:3, 12:5, 5:2, 13:5, 8:3, 11:4, 14:5, 3:1
! HR                  human readable text: On, Off, or On,Off where there is a choice
! HR.Offset           it can be moved: Vertical, Horizontal
! HR.Placement        Above, Below; HR.Alignment: Left, Right, Center, Bar
! HR.CheckDigit, HR.StartStop
!                     these characters in the text: Show, Hide
! HR.Font.Select      the text has a font of its own: HR.Font.Name (at most 31 characters), .Size, .Weight
!
! Words of lists are taken letter by letter, blanks and case included.

[.default]
HR=On,Off
HR.Placement=Below
HR.Alignment=Center
HR.Font.Name=Mono
HR.Font.Size=8
HR.Font.Weight=400

! Retail and logistics: on every model.
Code39=Yes
Code39.Ratio=2:1,5:2,3:1
Code39.FullASCII=Yes
Code39.StartStop.Required=Yes
Code39.StartStop.Variable=No
Code39.CheckDigit.Required=No
Code39.HR.StartStop=Show,Hide
Code39.HR.Translation=On,Off
Code93=Yes
Code93.Ratio=Variable
Code93.FullASCII=Yes
Code128=Yes
Code128.Encoding=Auto,Manual
Codabar=Yes
Codabar.Ratio=2:1,5:2,3:1
Codabar.StartStop.Required=Yes
Codabar.StartStop.Uppercase=Yes
Codabar.HR.StartStop=Show
I-2/5=Yes
I-2/5.Ratio=2:1,5:2,3:1
I-2/5.CheckDigit.Required=No
I-2/5.HR.CheckDigit=Show,Hide
MSI=Yes
MSI.Ratio=2:1
MSI.CheckDigit.Required=Yes
UPC-A=Yes
UPC-A.CheckDigit.Required=Yes
UPC-A.NumberSystem=0,1
UPC-A.GuardBar.Variable=No
UPC-A.GuardBar.WithoutHR=Yes
UPC-A.SplitDigit=Full
UPC-A.HR.Alignment=Bar
UPC-E=Yes
UPC-E.CheckDigit.Required=Yes
UPC-E.NumberSystem=1
UPC-E.GuardBar.Variable=No
UPC-E.GuardBar.WithoutHR=Yes
UPC-E.SplitDigit=Small
UPC-E.HR.Alignment=Bar
EAN-13=Yes
EAN-13.CheckDigit.Required=Yes
EAN-13.GuardBar.Variable=No
EAN-13.GuardBar.WithoutHR=Yes
EAN-13.HR.Alignment=Bar
EAN-8=Yes
EAN-8.CheckDigit.Required=Yes
EAN-8.GuardBar.Variable=No
EAN-8.GuardBar.WithoutHR=Yes
EAN-8.HR.Alignment=Bar

! The supplements; Attached numbers the ways in which one can follow its bar code.
Supplemental2=Yes
Supplemental2.Attached=1,2,3,4,5
Supplemental2.HR.Placement=Above
Supplemental5=Yes
Supplemental5.Attached=1,2,3,4
Supplemental5.HR.Placement=Above

PDF417=Yes
PDF417.HR=Off
PDF417.Truncated=No
PDF417.CorrectionLevel=Auto
PDF417.Columns=Auto
QRCode=Yes
QRCode.HR=Off
QRCode.Model=1,2
QRCode.Mode=Manual,Auto
QRCode.Mask=Auto
QRCode.StructuredAppend=No

! The mobile printers choose shape and mask of a code themselves.
[Mobile]
! Its text comes in one size, so that no digit stands apart.
UPC-A.SplitDigit=None
MSI=No
DataMatrix=Yes
DataMatrix.HR=Off
DataMatrix.ECC=200
DataMatrix.Rectangle=No
DataMatrix.FunctionCodes=None
DataMatrix.FormatID=Auto
QRCode.Model=2
QRCode.Mode=Auto
Aztec=Yes
Aztec.HR=Off
Aztec.Compact=Yes
Aztec.Full=Yes
RSS=Yes
RSS.Type=RSS14,Limited

[Desktop]
HR.Offset=Vertical,Horizontal
HR.Placement=Above,Below
HR.Alignment=Left,Right,Center
HR.Font.Select=Yes
RestrictedMethods=TemplateFile
Code39.Ratio=Variable
Code39.StartStop.Variable=Yes
Codabar.Ratio=Variable
Codabar.HR.StartStop=Show,Hide
I-2/5.Ratio=2:1,11:5,9:4,7:3,12:5,5:2,13:5,8:3,11:4,14:5,3:1
MSI.Ratio=2:1,5:2,3:1
MSI.HR.CheckDigit=Show,Hide
UPC-A.GuardBar.Variable=Yes
EAN-13.GuardBar.Variable=Yes
Code11=Yes
Code11.Ratio=2:1,5:2,3:1
Telepen=Yes
Telepen.CheckDigit.Required=Yes
Telepen.Mode=Numeric

! Post.
Postnet=Yes
Postnet.HR=Off
Planet=Yes
Planet.HR=Off
Planet.Digits=12,14
RoyalMail=Yes
RoyalMail.HR=Off
AustralianPost=Yes
AustralianPost.HR=Off
JapanPost=Yes
JapanPost.HR=Off
JapanPost.HighPriority=Yes
KIX=Yes
KIX.HR=Off
FIM=Yes
FIM.HR=Off
CPCode=No

! Stacked codes.
PDF417.Truncated=Yes
MicroPDF417=Yes
MicroPDF417.HR=Off
MicroPDF417.Size=Auto
Codablock=Yes
Codablock.Type=A,E,F
Code16K=Yes
Code16K.HR=Off
Code49=Yes
RSS=Yes
RSS.Type=RSS14,Truncated,Stacked,Omnidirectional,Limited,Expanded,ExpandedStacked
RSS.SegmentsPerRow=Manual
Composite=Yes
Composite.Type=RSS14,Truncated,Stacked,Omnidirectional,Limited,Expanded,ExpandedStacked,EAN8,EAN13,UPCA,UPCE,128_CC_AB,128_CC_C
Composite.SegmentsPerRow=Manual

! Matrix codes. Fields of the first two can't be counted up.
DataMatrix=Yes
DataMatrix.HR=Off
DataMatrix.RestrictedMethods=Serialization,TemplateFile
DataMatrix.ECC=000,010,040,050,060,070,080,090,100,110,120,130,140,200
DataMatrix.WhiteOnBlack=Yes
DataMatrix.Rectangle=Manual
DataMatrix.StructuredAppend=Yes
MaxiCode=Yes
MaxiCode.HR=Off
MaxiCode.RestrictedMethods=Serialization,VariableData,Static
MaxiCode.Mode=2,3,4,5,6
MaxiCode.ZipperBlock=Yes
MaxiCode.ContrastBlock=Yes
MaxiCode.StructuredAppend=Yes
QRCode.Mask=Manual,Auto
QRCode.StructuredAppend=Yes
MicroQRCode=Yes
MicroQRCode.HR=Off
MicroQRCode.Mode=Manual,Auto
MicroQRCode.Mask=Manual,Auto
Aztec=Yes
Aztec.HR=Off
Aztec.FinderPattern=Yes
Aztec.Compact=Yes
Aztec.Full=Yes
Aztec.WhiteOnBlack=Yes
Aztec.ErrorCorrection=Yes
Aztec.Layers=Yes
Aztec.StructuredAppend=Yes
AztecMesa=No
CodeOne=No
Vericode=No

! All in any of its inks; what is missing is drawn here as lines. A DataMatrix that finds its own size
! can't be set up as a font: it is there for finished jobs only.
[Colour]
Color=Yes
MSI=No
QRCode.Color=No
DataMatrix=Yes
DataMatrix.HR=Off
DataMatrix.ECC=200
DataMatrix.WhiteOnBlack=No
DataMatrix.Size=Auto
