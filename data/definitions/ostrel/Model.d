! Media, resolution, colour and ports of each model, and the way to its other sections.
!
! Lengths are a number and a unit: in, mm, cm, mils, pts. A number with a point has three decimals (cm:
! four); the rest is cut off. X runs across the label, Y along the feed.
!
! Stock.Minimum, .Maximum   page sizes that the user may choose
! Stock.Printable           what the print head reaches
! Stock.Default             the printable size of a new printer; the page is 1.27 mm wider on each side
! Stock.UnprintableWidth    edge of the label that the head keeps clear of
! Stock.Tracking            where the web runs: Left, Center or Right
! Resolution                dots per inch, "X" or "XxY", at most eight; the first is the default
! Color.*                   spot colours (2,3,4), process colours (CMY,CMYK), bits a pixel (16,24,32)
! Ports.Bidirectional       ports that carry the printer's answers back
! ~TopOfForm.Maximum        largest shift of the first line, up or down
!
! What stands lower in the file wins: keep [.default] first.

[.default]
Stock.Tracking=Left
Stock.UnprintableWidth=0.05 in
Stock.Minimum.X=0.75 in
Stock.Minimum.Y=0.25 in
Stock.Maximum.X=4.65 in
Stock.Maximum.Y=39 in
Stock.Printable.X=104 mm
Stock.Printable.Y=39 in
Stock.Default.X=4 in
Stock.Default.Y=6 in
Resolution=203
Ports.Bidirectional=Parallel,USB
~TopOfForm.Maximum=15 mm
BarCode=BarCode:Desktop
Drawing=Drawing:Desktop
Features=Features:Desktop
Font=Font:Desktop
Method=Method:Desktop
~CustomData=CustomData:Ostrel

! Belt printer for receipts and shelf labels: 384 dots, 48 mm.
[M2]
Stock.Tracking=Center
Stock.UnprintableWidth=1 mm
Stock.Minimum.X=25 mm
Stock.Minimum.Y=12.5 mm
Stock.Maximum.X=58 mm
Stock.Maximum.Y=32 in
Stock.Printable.X=48 mm
Stock.Printable.Y=32 in
Stock.Default.X=45 mm
Stock.Default.Y=25 mm
Ports.Bidirectional=USB
~TopOfForm.Maximum=5 mm
BarCode=BarCode:Mobile
Drawing=Drawing:Mobile
Features=Features:Mobile
Font=Font:Mobile
Method=Method:Mobile

! Route accounting and warehouse: 832 dots, 104 mm, with clock and radio.
[M4]
Stock.Tracking=Center
Stock.Minimum.X=2 in
Stock.Minimum.Y=0.5 in
Stock.Maximum.X=4.4 in
Stock.Maximum.Y=32 in
Stock.Printable.Y=32 in
Stock.Default.Y=3 in
Ports.Bidirectional=USB
BarCode=BarCode:Mobile
Drawing=Drawing:Mobile
Features=Features:Mobile U1
Font=Font:Mobile
Method=Method:Mobile

! Keldrum's housing guides a narrower web.
[D4-203]
Stock.Maximum.X(KD)=4.5 in

[D4-300]
Stock.Printable.X=4.16 in
Resolution=300,300x150
Drawing=Drawing:Desktop 300
Font=Font:Desktop 300

! UHF reader between web and head; the label must cover the antenna.
[R4]
Stock.Minimum.X=1.5 in
Stock.Minimum.Y=0.625 in
Stock.Default.Y=2 in
Features=Features:Desktop Clock
RFID=RFID:UHF

! The same printer with a 13.56 MHz reader.
[R4-HF]
Stock.Minimum.X=1.5 in
Stock.Minimum.Y=0.625 in
Stock.Default.Y=2 in
Features=Features:Desktop Clock
RFID=RFID:HF

! Ink-jet printer for full colour labels; no parallel port.
[C4]
Stock.Tracking=Right
Stock.UnprintableWidth=59 mils
Stock.Minimum.X=2.5 cm
Stock.Minimum.Y=18 pts
Stock.Maximum.X=11.2 cm
Stock.Printable.X=4.1 in
Resolution=600,600x300,300,1200x600
Color=Yes
Color.Spot=2,3,4
Color.Process=CMY,CMYK
Color.Spectrum=16,24,32
Color.DefaultState=Color
Ports.Bidirectional=USB
BarCode=BarCode:Colour
Drawing=Drawing:Colour
Features=Features:Network
Font=Font:Colour
Method=Method:Colour
