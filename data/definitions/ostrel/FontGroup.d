! The resident fonts, in groups that models share.
!
! A section with the key Fonts is a model's choice of groups; Model.d names it. The others are groups:
! Font                      the fonts of the group
! Bitmap.ScaleToResolution  sizes are in dots and follow the resolution
! Encoding.Class            class of encodings, see Encodings.d
! RestrictedMethods         ways of printing in which the group can't be used: TemplateFile, StaticPage,
!                           FormatPage, Serialization

[Mobile Set]
Fonts=FontGroup:Bitmap.pfg,FontGroup:Symbols.pfg

[Desktop Set]
Fonts=FontGroup:Scalable.pfg,FontGroup:Bitmap.pfg,FontGroup:Symbols.pfg

! The bitmap fonts were drawn for 203 dots per inch and have a finer set of their own here.
[Desktop 300 Set]
Fonts=FontGroup:Scalable.pfg,FontGroup:Bitmap 300.pfg,FontGroup:Symbols.pfg

[Colour Set]
Fonts=FontGroup:Scalable.pfg

[Bitmap]
Font=Bitmap 6,Bitmap 8,Bitmap 10,Bitmap 12,Bitmap 14,Bitmap 18,Bitmap 24
Bitmap.ScaleToResolution=Yes
Encoding.Class=Bitmap
RestrictedMethods=TemplateFile

[Bitmap 300]
Font=Bitmap 6,Bitmap 8,Bitmap 10,Bitmap 12,Bitmap 14,Bitmap 18,Bitmap 24
Bitmap.ScaleToResolution=No
Encoding.Class=Bitmap
RestrictedMethods=TemplateFile

[Scalable]
Font=Sans,Sans Bold,Sans Condensed,Mono,Mono Bold
Bitmap.ScaleToResolution=No
Encoding.Class=Scalable

[Symbols]
Font=Signs
Encoding.Class=Symbol
RestrictedMethods=StaticPage,FormatPage,Serialization

! Groups of optional fonts: only there once the user has declared the card or the pack.
[Card]
Font=Serif,Serif Bold
Encoding.Class=Scalable

[East Asian]
Font=Gothic,Mincho
Encoding.Class=Asian
RestrictedMethods=Serialization
