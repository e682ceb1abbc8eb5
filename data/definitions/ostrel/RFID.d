! The radio tags that a printer's reader writes. A tag's key switches it on; a model without a section
! writes none. The default is the first that is on of: ISO18000, EPC, EPCGen2, UCODE_EPC119, ISO15693,
! ICode1, Picotag, TagIt, TagSys.
!
! .Types              kinds of the tag
! .Segments           parts of its memory that can be written: All, Header, Data, EPC, TID, User, Control,
!                     Reserved; .Segments.Default: one of them
! .StartBlock         writing can start at a block of choice; .StartBlock.Default: the usual one
! .WriteProtect       written blocks can be locked
! .RestrictedMethods  ways of printing that can't write it: FormatPage, Serialization, StaticPage,
!                     TemplateFile

[UHF]
EPCGen2=Yes
EPCGen2.Types=Class1,Class2,Class3
EPCGen2.Segments=EPC,TID,User,Reserved
EPCGen2.Segments.Default=EPC
EPCGen2.StartBlock=Yes
EPCGen2.StartBlock.Default=2
EPCGen2.WriteProtect=Yes
EPCGen2.RestrictedMethods=StaticPage
UCODE_EPC119=Yes
UCODE_EPC119.Segments=Header,Data
UCODE_EPC119.Segments.Default=Header
UCODE_EPC119.StartBlock=No
UCODE_EPC119.StartBlock.Default=1
UCODE_EPC119.WriteProtect=No
UCODE_EPC119.RestrictedMethods=StaticPage,TemplateFile

! Reader modules made before the second generation of tags. No model leads here: an administrator
! chooses it by the printer's setting "Table/RFID".
[UHF Legacy]
ISO18000=Yes
ISO18000.Types=6B
ISO18000.Segments=Data,Control
ISO18000.Segments.Default=Data
ISO18000.StartBlock=Yes
ISO18000.StartBlock.Default=18
ISO18000.WriteProtect=Yes
ISO18000.RestrictedMethods=FormatPage,StaticPage
EPC=Yes
EPC.Types=Class1,Class0,Class0+
EPC.Segments=All,Header,Data
EPC.Segments.Default=Data
EPC.StartBlock=No
EPC.StartBlock.Default=1
EPC.WriteProtect=No
EPC.RestrictedMethods=StaticPage

[HF]
ISO15693=Yes
ISO15693.Types=Generic,Tag-It,I-Code,My-d
ISO15693.Segments=Data
ISO15693.Segments.Default=Data
ISO15693.StartBlock=Yes
ISO15693.StartBlock.Default=1
ISO15693.WriteProtect=Yes
ISO15693.RestrictedMethods=Serialization
ICode1=Yes
ICode1.Segments=All,Data
ICode1.Segments.Default=All
ICode1.StartBlock=Yes
ICode1.StartBlock.Default=5
ICode1.WriteProtect=Yes
ICode1.RestrictedMethods=Serialization,TemplateFile
Picotag=Yes
Picotag.Segments=All,Data
Picotag.Segments.Default=All
Picotag.StartBlock=Yes
Picotag.StartBlock.Default=3
Picotag.WriteProtect=No
Picotag.RestrictedMethods=Serialization
TagIt=Yes
TagIt.Segments=Data
TagIt.Segments.Default=Data
TagIt.StartBlock=Yes
TagIt.StartBlock.Default=1
TagIt.WriteProtect=Yes
TagIt.RestrictedMethods=Serialization
TagSys=Yes
TagSys.Segments=Data
TagSys.Segments.Default=Data
TagSys.StartBlock=No
TagSys.StartBlock.Default=1
TagSys.WriteProtect=No
TagSys.RestrictedMethods=Serialization,FormatPage
