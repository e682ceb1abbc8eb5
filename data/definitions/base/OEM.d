! What the About page shows, one section for each maker code.
!
! About.Template   name of the dialog template of the About page
! About.Default    yes: a sheet that was never opened before opens on the About page
! About.Graphic.*  name of the picture on the About page

[.default]
About.Template=*:ABOUT
About.Default=No

[VT]
About.Graphic.Vantrel=AboutVantrel

[KD]
About.Default=Yes
About.Graphic.OEM=AboutKeldrum
