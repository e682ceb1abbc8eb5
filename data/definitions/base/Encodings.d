! The character encodings that resident and downloaded fonts are addressed in.
!
! NAME.Classes      encoding classes, parted by ";". A font group or a font section asks for one class
!                   ("Encoding.Class" in FontGroup.d, "Encodings.TrueType.Class" in Font.d); a model has
!                   the encodings that share a class with it.
! NAME.Description  only for a name that is neither a code page, UTF-8, UTF-16, ISO-n, ISO-8859-n, JIS
!                   nor Mac-Western: a language, and behind ";" what is shown with it.

! Resident fonts of the mobile printers: Western, Central European and Cyrillic single-byte pages.
[Resident]
437.Classes=Bitmap;Scalable
850.Classes=Bitmap;Scalable
852.Classes=Scalable
858.Classes=Bitmap;Scalable
866.Classes=Scalable
1250.Classes=Scalable
1251.Classes=Scalable
1252.Classes=Bitmap;Scalable;TrueType
ISO-8859-1.Classes=Bitmap
ISO-8859-15.Classes=Bitmap
ISO-21.Classes=Bitmap
ISO-60.Classes=Bitmap
ISO-69.Classes=Bitmap
Ostrel-Symbols.Classes=Symbol
Ostrel-Symbols.Description=Western;Ostrel Symbols

! The desktop printers add the rest of Europe, East Asia and Unicode.
[World]
437.Classes=Bitmap;Scalable
737.Classes=Scalable
775.Classes=Scalable
850.Classes=Bitmap;Scalable
852.Classes=Scalable
855.Classes=Scalable
857.Classes=Scalable
858.Classes=Bitmap;Scalable
862.Classes=Scalable
866.Classes=Scalable
932.Classes=Asian
936.Classes=Asian
949.Classes=Asian
950.Classes=Asian
1250.Classes=Scalable
1251.Classes=Scalable
1252.Classes=Bitmap;Scalable
1253.Classes=Scalable
1254.Classes=Scalable
1257.Classes=Scalable
ISO-8859-1.Classes=Bitmap
ISO-8859-2.Classes=Scalable
ISO-8859-15.Classes=Bitmap
JIS.Classes=Asian
Mac-Western.Classes=Scalable
UTF-8.Classes=TrueType;Asian
UTF-16.Classes=TrueType
Ostrel-Symbols.Classes=Symbol
Ostrel-Symbols.Description=Western;Ostrel Symbols
