! Resident and downloaded fonts of a model.
!
! DefaultFont.Text, .BarCode  the font of plain text and the one of the text at a bar code: name (at most
!                             19 characters, the maker's prefix comes in front), size in points, weight
! Download.TrueType           fonts can be sent as TrueType; .SymbolFont: those of symbols too
! Download.Bitmap             fonts can be sent as bitmaps; .Orientation: 0, 90 degrees
! Fonts                       the groups of resident fonts, sections of FontGroup.d
! Encodings                   the section of Encodings.d
! Encodings.TrueType.Class, .TTSymbolFont.Class
!                             encoding classes of downloaded fonts
! Encodings.Preferred.PAGE    encodings in the order of choice where PAGE is the system's code page
! Encodings.Preferred.Default the same elsewhere, parted by ";", or ANSI for the Windows code pages
! ~FontOptions.Custom         the user may declare fonts of his own; as Download.* allows if absent
! ~FontOptions.Predefined     fonts of cards and packs are offered
! ~FontOptions.Providers      the cards and packs; ~FontOptions.NAME is the section of each

[.default]
DefaultFont.Text.Name=Sans
DefaultFont.Text.Size=10
DefaultFont.Text.Weight=400
DefaultFont.BarCode.Name=Mono
DefaultFont.BarCode.Size=8
DefaultFont.BarCode.Weight=400
Encodings=Encodings:World
Encodings.Preferred.1250=1250,852
Encodings.Preferred.1251=1251,866
Encodings.Preferred.1252=1252,850,437
Encodings.Preferred.932=932,UTF-8
Encodings.Preferred.Default=ANSI
~FontOptions.Ostrel Font Card=FontOptions:Ostrel Font Card
~FontOptions.East Asian Font Pack=FontOptions:East Asian Font Pack

[Mobile]
Fonts=FontGroup:Bitmap.pfg,FontGroup:Symbols.pfg
DefaultFont.Text.Name=Bitmap 12
DefaultFont.Text.Size=12
DefaultFont.BarCode.Name=Bitmap 8
Download.Bitmap=Yes
Download.Bitmap.Orientation=0,90
Encodings=Encodings:Resident
Encodings.Preferred.Default=850;437
~FontOptions.Custom=No

[Desktop]
Fonts=FontGroup:Scalable.pfg,FontGroup:Bitmap.pfg,FontGroup:Symbols.pfg
Download.TrueType=Yes
Download.TrueType.SymbolFont=Yes
Download.Bitmap=Yes
Download.Bitmap.Orientation=0
Encodings.TrueType.Class=TrueType
Encodings.TTSymbolFont.Class=Symbol
~FontOptions.Custom=Yes
~FontOptions.Predefined=Yes
~FontOptions.Providers=Ostrel Font Card,East Asian Font Pack

! The bitmap fonts were drawn for 203 dots per inch and have a finer set of their own here.
[Desktop 300]
Fonts=FontGroup:Scalable.pfg,FontGroup:Bitmap 300.pfg,FontGroup:Symbols.pfg
Download.TrueType=Yes
Download.TrueType.SymbolFont=Yes
Download.Bitmap=Yes
Download.Bitmap.Orientation=0
Encodings.TrueType.Class=TrueType
Encodings.TTSymbolFont.Class=Symbol
~FontOptions.Custom=Yes
~FontOptions.Predefined=Yes
~FontOptions.Providers=Ostrel Font Card,East Asian Font Pack

[Colour]
Fonts=FontGroup:Scalable.pfg
DefaultFont.Text.Weight=700
Encodings.TrueType.Class=TrueType
