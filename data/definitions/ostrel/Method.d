! How a printer repeats, counts and stores labels.
!
! Copies.Limit                 most copies that one command asks for (0 or absent: 32767)
! Serialization                the printer counts a field up by itself
!   .Count.Limit, .Step.Limit  largest number of labels and largest step
!   .RolloverExpands           9 goes to 10, not to 0
!   .Copies                    each number can be printed several times
! StaticFields, VariableData   a label is kept in the printer and only its changing fields are sent
! StaticGraphics               kept graphics; .Restrictions=NoVariableGraphics: none among changing fields
! Cache.Graphic, Cache.Format  graphics and label formats are kept under a name
! TemplateExport               a label can be saved as a template file
! PrinterCommand.Font          the font of printer commands is listed (yes unless taken back)

[.default]
Copies.Limit=9999
Serialization=No
StaticFields=Yes
VariableData=No
StaticGraphics=No
Cache.Graphic=No
Cache.Format=No
TemplateExport=No

[Mobile]
Copies.Limit=999
StaticFields=No

[Desktop]
Serialization=Yes
Serialization.Count.Limit=999999
Serialization.Step.Limit=9999
Serialization.RolloverExpands=Yes
Serialization.Copies=Yes
VariableData=Yes
StaticGraphics=Yes
Cache.Graphic=Yes
Cache.Format=Yes
TemplateExport=Yes

! Each page is rendered here: nothing is kept in the printer.
[Colour]
Copies.Limit=500
StaticFields=No
StaticGraphics=Yes
StaticGraphics.Restrictions=NoVariableGraphics
PrinterCommand.Font=No
