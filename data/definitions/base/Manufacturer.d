! The makers under whose names the printers are sold. Driver.d names one of these sections.
! A line that begins with "!" is a comment; nothing may follow a value on its line.
!
! CompanyName, ProductName: at most 31 characters. Fonts.Prefix: at most 11; it stands, with a
! blank, in front of the name of each default font. Copyright: the line on the first page of a
! sheet, hidden without it; {C} stands for the copyright sign and the driver's years, {R} and {T}
! for the signs of trademarks.

[Vantrel]
CompanyName=Vantrel
ProductName=Vantrel Ostrel Printer Driver
Fonts.Prefix=Ostrel
Copyright=Copyright {C} Vantrel. All rights reserved.

! Sells Ostrel printers in its own housing, with maker code "kd" in the name of the data file.
[Keldrum]
CompanyName=Keldrum Labelling
ProductName=Keldrum Label Printer Driver
Fonts.Prefix=Keldrum
Copyright=Made for Keldrum Labelling by Vantrel. Copyright {C} Vantrel.
