! What the printer draws by itself, and how its coordinates lie.
!
! Transform.Orientation    turn of the whole label: 0, 90, 180, 270
! Transform.Flip180, .Mirror, .Inverse
!                          the printer itself can turn, mirror or print white on black
! Transform.MapResolution  dots per inch that drawing commands count in, where not those of the head
! *.Anchor                 point of an object that its position means, as "Bottom/Left"
! *.Anchor.Relative        the anchor turns with the object
! *.Thickness.Maximum      dots
! *.Thickness.Anchor       which part of the pen lies on the outline: Center, Edge, Outer, Inner
! *.Pen                    pens beside black: White, Inverse, Color
! Text.Rotation            None, or Any for free angles; quarter turns if absent
! Text.Scaling             None, or Anisotropic for width apart from height; both alike if absent
! BarCode.DrawUnsupported.1D, .2D
!                          how a bar code is drawn that the printer lacks: Lines, Graphic; the first is
!                          taken first

! The desktop printers at 203 dots per inch.
[.default]
Transform.Orientation=0
Transform.Flip180=Yes
Transform.Mirror=Yes
Transform.Inverse=Yes
Line=Yes
Line.Anchor=Top/Left
Line.Pen=White,Inverse
Line.Thickness.Anchor=Edge
Line.Thickness.Maximum=9999
Line.Diagonal=Yes
Line.Diagonal.Pen=White,Inverse
Box=Yes
Box.Anchor=Top/Left
Box.Pen=White,Inverse
Box.Shape=Ellipse,Rounded,Circle
Box.Thickness.Anchor=Inner
Box.Thickness.Maximum=999
Box.Fill=Yes
BarCode.Anchor=Bottom/Left
BarCode.Anchor.Relative=Yes
BarCode.DrawUnsupported.1D=Lines,Graphic
BarCode.DrawUnsupported.2D=Graphic,Lines
Text.Anchor=Baseline/Left
Text.Anchor.Relative=Yes
Text.Scaling=Anisotropic
Text.Vertical=Yes
Text.WhiteOnBlack.Background=Yes

[Desktop]

! Commands keep counting in the dots of the 203 dpi head.
[Desktop 300]
Transform.MapResolution=203

! Black lines and boxes only; the label leaves the printer head first.
[Mobile]
Transform.Orientation=180
Transform.Mirror=No
Transform.Inverse=No
Line.Pen=
Line.Thickness.Anchor=Center
Line.Diagonal=No
Line.Diagonal.Pen=
Box.Pen=
Box.Shape=
Box.Fill=No
BarCode.Anchor.Relative=No
BarCode.DrawUnsupported.1D=Graphic
BarCode.DrawUnsupported.2D=Graphic
Text.Anchor=Top/Left
Text.Anchor.Relative=No
Text.Rotation=None
Text.Scaling=None
Text.Vertical=No
Text.WhiteOnBlack.Background=No

[Colour]
Transform.Orientation=90
Transform.Inverse=No
Line.Pen+=Color
Line.Thickness.Anchor=Outer
Line.Diagonal.Pen=White
Box.Pen=White,Color
Box.Shape=Rounded
BarCode.DrawUnsupported.1D=Lines
BarCode.DrawUnsupported.2D=Lines
Text.Rotation=Any
