#include "golden/ghostscript.h"

namespace {

// Ghostscript ignores keys that it does not know, and values of another type
// than the language wants for them. These are the keys of the
// language and of the printers, with the types of their values.
const std::string kKeys = R"(/keyTypes <<
  /AdvanceDistance [ /integertype /realtype ]
  /AdvanceMedia [ /integertype ]
  /BeginPage [ /arraytype ]
  /Collate [ /booleantype ]
  /CutMedia [ /integertype ]
  /Duplex [ /booleantype ]
  /EconoMode [ /booleantype ]
  /ExitJamRecovery [ /booleantype ]
  /Fold [ /integertype ]
  /FoldDetails [ /dicttype ]
  /HWResolution [ /arraytype ]
  /ImageShift [ /arraytype ]
  /Install [ /arraytype ]
  /JobName [ /stringtype ]
  /Jog [ /integertype ]
  /ManualFeed [ /booleantype ]
  /MediaPosition [ /integertype /nulltype ]
  /MediaType [ /stringtype /nulltype ]
  /MediaWeight [ /integertype /realtype /nulltype ]
  /MirrorPrint [ /booleantype ]
  /NegativePrint [ /booleantype ]
  /NumCopies [ /integertype /nulltype ]
  /Orientation [ /integertype ]
  /OutputFaceUp [ /booleantype ]
  /OutputType [ /stringtype /nulltype ]
  /PageSize [ /arraytype ]
  /PostRenderingEnhance [ /booleantype ]
  /PostRenderingEnhanceDetails [ /dicttype ]
  /PrintDarkness [ /integertype ]
  /PrintSpeed [ /realtype ]
  /ProcessColorModel [ /nametype ]
  /Punch [ /integertype ]
  /PunchDetails [ /dicttype ]
  /Staple [ /integertype ]
  /StapleDetails [ /dicttype ]
  /Tumble [ /booleantype ]
  /WaitTimeout [ /integertype ]
>> def
)";

// The operand stack is empty and the dictionary stack at its usual depth when
// a case begins. `restore` gives the page device back as it was.
const std::string kRunner = kKeys + R"(
/usualDepth countdictstack def
/complain { print (: ) print = flush } bind def
/checkKey { % key value
  type cvlit /valueType exch def
  /key exch def
  keyTypes key known {
    /fits false def
    keyTypes key get { valueType eq { /fits true def } if } forall
    fits not { (a value has the wrong type, of ) print key = flush } if
  } { (a key is unknown, ) print key = flush } ifelse
} bind def
/checkKeys { dup type /dicttype eq { dup { checkKey } forall } if } bind def
/realSetPageDevice /setpagedevice load def
/setpagedevice { checkKeys realSetPageDevice } def
/realSetUserParams /setuserparams load def
/setuserparams { checkKeys realSetUserParams } def
/runCase { % file label
  /caseLabel exch def
  /caseFile exch def
  /caseState save def
  { caseFile run showpage } stopped {
    $error /errorname get caseLabel complain
  } {
    count 0 ne { (objects are left on the operand stack) caseLabel complain } if
    countdictstack usualDepth ne { (a dictionary is left open) caseLabel complain } if
  } ifelse
  clear cleardictstack
  caseState restore
} def
)";

std::string inParentheses(const std::string& text) {
  std::string quoted = "(";
  for (const char character : text) {
    if (character == '(' || character == ')' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + ")";
}

}  // namespace

RunResult GhostscriptTest::runGhostscript(const std::string& device,
                                          const std::string& file) const {
  return runIn(folder(), GHOSTSCRIPT,
               {"-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-sDEVICE=" + device,
                "--permit-file-read=" + folder().string() + "/", file});
}

std::string GhostscriptTest::findFaults(const std::vector<PostScriptCase>& cases) const {
  std::string batch = kRunner;
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const std::string file = "case" + std::to_string(i) + ".ps";
    write(file, cases[i].code);
    batch += inParentheses((folder() / file).string()) + " " + inParentheses(cases[i].label) +
             " runCase\n";
  }
  write("batch.ps", batch + "(all run) = flush\n");
  const RunResult result = runGhostscript("nullpage", "batch.ps");
  const std::string kAllRun = "all run\n";
  std::string faults = result.output + result.errors;
  if (result.output.ends_with(kAllRun)) {
    faults = result.output.substr(0, result.output.size() - kAllRun.size()) + result.errors;
  } else {
    faults += "not all cases were run\n";
  }
  if (result.status != 0) faults += "status " + std::to_string(result.status) + "\n";
  return faults;
}

RunResult GhostscriptTest::print(const std::string& code) const {
  write("print.ps", code);
  return runGhostscript("nullpage", "print.ps");
}

std::string GhostscriptTest::findPaintedBox(const std::string& code) const {
  write("paint.ps", code + "showpage\n");
  const RunResult result = runGhostscript("bbox", "paint.ps");
  const std::string kTitle = "%%BoundingBox: ";
  if (result.status != 0 || !result.errors.starts_with(kTitle)) return "no box: " + result.errors;
  return result.errors.substr(kTitle.size(), result.errors.find('\n') - kTitle.size());
}
