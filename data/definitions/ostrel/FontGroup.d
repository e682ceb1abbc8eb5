! The resident fonts, in groups that models share; the key Fonts of Font.d is a model's choice.
!
! Font                      the fonts of the group
! Bitmap.ScaleToResolution  sizes are in dots and follow the resolution
! Encoding.Class            class of encodings, see Encodings.d
! RestrictedMethods         ways of printing in which the group can't be used: TemplateFile, StaticPage,
!                           FormatPage, Serialization

[Bitmap.pfg]
Font=Bitmap 6,Bitmap 8,Bitmap 10,Bitmap 12,Bitmap 14,Bitmap 18,Bitmap 24
Bitmap.ScaleToResolution=Yes
Encoding.Class=Bitmap
RestrictedMethods=TemplateFile

[Bitmap 300.pfg]
Font=Bitmap 6,Bitmap 8,Bitmap 10,Bitmap 12,Bitmap 14,Bitmap 18,Bitmap 24
Bitmap.ScaleToResolution=No
Encoding.Class=Bitmap
RestrictedMethods=TemplateFile

[Scalable.pfg]
Font=Sans,Sans Bold,Sans Condensed,Mono,Mono Bold
Bitmap.ScaleToResolution=No
Encoding.Class=Scalable

[Symbols.pfg]
Font=Signs
Encoding.Class=Symbol
RestrictedMethods=StaticPage,FormatPage,Serialization

! Groups of optional fonts: only there once the user has declared the card or the pack.
[Card.pfg]
Font=Serif,Serif Bold
Encoding.Class=Scalable

[East Asian.pfg]
Font=Gothic,Mincho
Encoding.Class=Asian
RestrictedMethods=Serialization
