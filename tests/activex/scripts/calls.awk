# Makes a script of a list of calls: awk -v language=vbs|js [-v members=FILE] -f calls.awk CLASS.calls
#
# A list has one statement a line, in what both languages of the script host have in common:
#   new NAME CLASS             a new object of a class of the library
#   STATEMENT                  is carried out without an error
#   set STATEMENT              the same of an assignment of an object
#   EXPRESSION -> VALUE        has that value, and its type
#   STATEMENT !! NUMBER        is refused with that error, its words and the class as its source
#   STATEMENT !! NUMBER WORDS  the same, with words of its own
#   vbs: ...                   is played in that language alone (by-reference arguments, arrays, Nothing); lines with
#                              dates are too, for which the other language has no values of its own
#   js: ...                    is played in that language alone (objects of the script whose members are called)
#   no CALL: REASON            a script cannot call so, "wrong cMatriz get AddRow"
#   # ...                      is a remark
# A property is read where it stands and written where it stands before " = ". What is called, and whether the call
# was right or wrong, goes to the file `members`: "right cFecha get Texto", "wrong cFecha let Texto".

BEGIN {
  words[5] = "Llamada a procedimiento o argumento no válidos"
  words[6] = "Desbordamiento"
  words[9] = "Subíndice fuera del intervalo"
  words[13] = "El tipo no coincide"
  words[91] = "Variable de objeto o bloque With no establecido"
  words[94] = "Uso no válido de Null"
  words[380] = "El valor de la propiedad no es válido"
  words[438] = "El objeto no admite esta propiedad o método"
  words[449] = "Argumento no opcional"
  words[450] = "Número de argumentos incorrecto o asignación de propiedad no válida"
  vbs = language == "vbs"
  if (vbs) print "On Error Resume Next"
}

/^ *(#|$)/ { next }

/^vbs: |dateOf|timeOf/ {
  if (!vbs) next
  sub(/^vbs: /, "")
}

/^js: / {
  if (vbs) next
  sub(/^js: /, "")
}

/^no / {
  if (members) {
    sub(/^no /, "")
    sub(/:.*/, "")
    print >members
  }
  next
}

/^new / {
  class[$2] = $3
  print vbs ? "Set " $2 " = CreateObject(Library & \"" $3 "\")" : "var " $2 " = new ActiveXObject(library + \"" $3 "\");"
  next
}

{
  split_line()
  note()
  ++checks
  if (vbs) write_vbs()
  else write_js()
}

END { print vbs ? "Finish " checks : "finish(" checks ");" }

# Sets `call`, `value`, `number` and `expected_words`; `kind` is -> or !! or empty.
function split_line(    at) {
  kind = call = value = ""
  if (at = index($0, " -> ")) {
    kind = "->"
    value = substr($0, at + 4)
  } else if (at = index($0, " !! ")) {
    kind = "!!"
    value = substr($0, at + 4)
    number = value + 0
    expected_words = value
    sub(/^[0-9]+ ?/, "", expected_words)
    if (expected_words == "") expected_words = words[number]
    if (expected_words == "") {
      print FILENAME ":" FNR ": which words has error " number "?" >"/dev/stderr"
      exit 1
    }
  }
  call = at ? substr($0, 1, at - 1) : $0
  sub(/ +$/, "", call)
  sub(/^ +/, "", value)
  object = sub(/^set /, "", call)
  bare = call
  gsub(/"[^"]*"/, "\"\"", bare)
  assigns = bare ~ /^[A-Za-z_][A-Za-z_0-9]*(\.[^=]*)? = /
}

# A wrong call is one of the member that it begins with alone: the others may be its arguments.
function note(    rest, first, variable, member) {
  rest = bare
  first = 1
  while (match(rest, /[A-Za-z_][A-Za-z_0-9]*\.[A-Za-z_][A-Za-z_0-9]*/)) {
    variable = member = substr(rest, RSTART, RLENGTH)
    sub(/\..*/, "", variable)
    sub(/.*\./, "", member)
    if (members && (variable in class) && (first || kind != "!!"))
      print (kind == "!!" ? "wrong " : "right ") class[variable] (assigns && first && index(bare, variable ".") == 1 ? " let " : " get ") member >members
    first = 0
    rest = substr(rest, RSTART + RLENGTH)
  }
}

function quoted(text) {
  if (vbs) gsub(/"/, "\"\"", text)
  else gsub(/"/, "\\\"", text)
  return "\"" text "\""
}

function write_vbs(    leading) {
  leading = call
  sub(/\..*/, "", leading)
  if (assigns) print (object ? "Set " : "") call
  else if (kind == "") print "Call " call
  else print "got = " call
  print "Note"
  if (kind == "->") print "Gave " quoted(call) ", " value
  else if (kind == "!!") print "Refused " quoted(call) ", " number ", " quoted(expected_words) ", " quoted(class[leading])
  else print "Ran " quoted(call)
}

function write_js() {
  if (kind == "->") print "gave(" quoted(call) ", function () { return " call "; }, function () { return " value "; });"
  else if (kind == "!!") print "refused(" quoted(call) ", function () { " (assigns ? "" : "return ") call "; }, " number ", " quoted(expected_words) ");"
  else print "ran(" quoted(call) ", function () { " call "; });"
}
