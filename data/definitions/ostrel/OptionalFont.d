! The fonts of cards and packs.
!
! Type          TrueType or Bitmap
! CharacterSet  the printer's encoding of it
! FileName      file on the card or in the printer's memory, FontID: number that selects it
! Location      storage, one letter: the card E, the memory B
! ~FontGroup    group in FontGroup.d that the font brings with it

[.default]
Type=TrueType
Location=E
~FontGroup=FontGroup:Card.pfg

[Serif]
Description=Serif face with Western, Greek and Cyrillic letters
CharacterSet=1252
FileName=SERIF.TTF
FontID=60

[Serif Bold]
Description=Bold serif face
CharacterSet=1252
FileName=SERIFB.TTF
FontID=61

[Large Digits]
Type=Bitmap
Description=Digits for price labels, 72 points
CharacterSet=437
FileName=DIGITS72.FNT
FontID=62

[Gothic]
Description=Japanese sans serif face
CharacterSet=932
FileName=GOTHIC.TTF
FontID=80
Location=B
~FontGroup=FontGroup:East Asian.pfg

[Mincho]
Description=Japanese serif face
CharacterSet=932
FileName=MINCHO.TTF
FontID=81
Location=B
~FontGroup=FontGroup:East Asian.pfg
