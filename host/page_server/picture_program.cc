#include "host/page_server/picture_program.h"

namespace driver_feature::page_server {

// Only the page's size goes to the device that draws: its resolution is ours, and it
// has no trays. Everything else is noted, and is there for settings that look first
// what the device has.
const std::string_view kPictureProgram = R"ps(%!PS
userdict begin
/DFAsked 60 dict def
/DFDevice 60 dict def
DFDevice begin
  /Duplex false def /Tumble false def /ManualFeed false def /Collate false def
  /TraySwitch false def /MediaPosition null def /MediaType null def /MediaColor null def
  /MediaWeight null def /MediaClass null def /OutputType null def /NumCopies null def
  /Staple 0 def /Jog 0 def
end
/DFNote {
  2 copy DFAsked 3 1 roll put
  DFDevice 3 1 roll put
} def
/setpagedevice {
  dup { DFNote } forall
  dup /PageSize known {
    /PageSize get 1 dict dup 3 -1 roll /PageSize exch put
    systemdict /setpagedevice get exec
  } { pop } ifelse
} def
/currentpagedevice {
  systemdict /currentpagedevice get exec dup length 60 add dict copy
  DFDevice { 2 index 3 1 roll put } forall
} def
{
  statusdict begin
  /setduplexmode { /Duplex exch DFNote } def
  /settumble { /Tumble exch DFNote } def
  /setpapertray { /MediaPosition exch DFNote } def
  end
} stopped pop clear
/DFFile (settings.ps) (r) file def
/DFDepth countdictstack def
{ DFFile cvx exec } stopped userdict exch /DFStopped exch put
clear
{ countdictstack DFDepth le { exit } if end } loop
userdict begin
DFStopped {
  (DF Failed\t) print
  $error /errorname get 100 string cvs print ( ) print
  $error /command get { 100 string cvs } stopped { pop pop () } if print (\n) print
} if
userdict /#copies known {
  #copies 1 ne DFAsked /NumCopies known not and { /NumCopies #copies DFNote } if
} if
DFAsked {
  exch (DF ) print dup type /nametype eq { 200 string cvs } { pop (?) } ifelse print
  (\t) print ===
} forall
(DF Size\t) print systemdict /currentpagedevice get exec /PageSize get ===
flush

initgraphics
/DFGray DFDevice /ProcessColorModel known {
  DFDevice /ProcessColorModel get dup /DeviceGray eq exch (DeviceGray) eq or
} { false } ifelse def
/DFColour { DFGray { 0.11 mul exch 0.59 mul add exch 0.3 mul add setgray } { setrgbcolor } ifelse }
def
clippath pathbbox /DFTop exch def /DFRight exch def pop pop newpath
/DFUnit DFTop DFRight 2 copy gt { exch } if pop 20 div def
/DFLine { DFUnit 0.12 mul setlinewidth moveto 0 rlineto stroke } def
0.75 0.78 0.82 DFColour DFUnit 0.08 mul setlinewidth
DFUnit dup DFRight DFUnit 2 mul sub DFTop DFUnit 2 mul sub rectstroke
0.11 0.30 0.55 DFColour
DFUnit 2 mul DFTop DFUnit 5 mul sub DFRight DFUnit 4 mul sub DFUnit 2.4 mul rectfill
1 setgray /Helvetica-Bold findfont DFUnit 1.4 mul scalefont setfont
DFUnit 2.6 mul DFTop DFUnit 4.3 mul sub moveto (Sample page) show
0.35 setgray
/DFRow 0 def
{
  /DFHeight DFTop DFUnit 6.5 DFRow 0.9 mul add mul sub def
  DFHeight DFUnit 6 mul lt { exit } if
  % Every sixth line ends a paragraph.
  DFRight DFUnit 4 mul sub DFRow 6 mod 5 eq { 0.55 mul } if
  DFUnit 2 mul DFHeight DFLine
  /DFRow DFRow 1 add def
} loop
0 1 2 {
  dup 0 eq { 0.80 0.25 0.22 } if dup 1 eq { 0.20 0.55 0.32 } if dup 2 eq { 0.93 0.70 0.20 } if
  DFColour DFUnit 2.2 mul mul DFUnit 2 mul add DFUnit 2 mul DFUnit 1.8 mul dup rectfill
} for
showpage
)ps";

}  // namespace driver_feature::page_server
