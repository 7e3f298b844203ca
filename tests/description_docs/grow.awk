# Prints a description with the elements of another file put into it:
#
#   awk -f grow.awk ELEMENTS DESCRIPTION
#
# An element takes the place of the one with its name, or comes after all
# others. Elements of the outermost level begin with two blanks, and their
# first attribute "Name" is their name.

function nameOf(text) {
  return match(text, / Name="[^"]*"/) ? substr(text, RSTART, RLENGTH) : text
}

# Prints what has been read of the description's current element.
function flush(    name) {
  if (current == "") return
  name = nameOf(current)
  if (name in added) {
    current = added[name]
    delete added[name]
  }
  printf "%s", current
  current = ""
}

FNR == NR {
  if (/^  <[A-Z]/) elements[++count] = ""
  elements[count] = elements[count] $0 "\n"
  next
}

FNR == 1 {
  if (count == 0) {
    print "there is no element to put in" > "/dev/stderr"
    exit 1
  }
  for (i = 1; i <= count; ++i) {
    names[i] = nameOf(elements[i])
    added[names[i]] = elements[i]
  }
}

/^<\/FeatureDescription>/ {
  flush()
  for (i = 1; i <= count; ++i) {
    if (names[i] in added) printf "%s", added[names[i]]
  }
}

/^<|^  <[A-Z]/ { flush() }

{ current = current $0 "\n" }

END { flush() }
