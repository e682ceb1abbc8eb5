! What the About page and the first page of a sheet show, one section for each maker code.
!
! About.Template   name of the dialog template of the About page
! About.Default    yes: a sheet that was never opened before opens on the About page
! About.Graphic.*  name of the picture on the About page
! Copyright        line on the first page; without it the line is hidden

[.default]
About.Template=*:ABOUT
About.Default=No

[VT]
About.Graphic.Vantrel=AboutVantrel
Copyright=Copyright (C) 2026 Vantrel. All rights reserved.

[KD]
About.Default=Yes
About.Graphic.OEM=AboutKeldrum
Copyright=Made for Keldrum Labelling by Vantrel.
