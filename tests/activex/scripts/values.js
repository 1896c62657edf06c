// Dates and tables from the other language of the script host.
var library = "TeselaControls_basicos.";
var checks = 0, failures = 0;

function checkEqual(what, expected, actual) {
    ++checks;
    if (expected === actual) return;
    ++failures;
    WScript.Echo("FAILED " + what + ": expected " + expected + ", got " + actual);
}

function checkError(what, number, action) {
    var found = 0;
    try {
        action();
    } catch (error) {
        found = error.number & 0xFFFF;
    }
    checkEqual(what, number, found);
}

var fecha = new ActiveXObject(library + "cFecha");
fecha.Mk_Date(29, 2, 2024);
checkEqual("Texto", "29/02/2024", fecha.Texto);
checkEqual("DiasMes", 29, fecha.DiasMes());
checkError("wrong type", 13, function () { fecha.Value = "nada"; });
checkError("missing argument", 449, function () { fecha.SetEspecial(); });
checkError("too many arguments", 450, function () { fecha.DiasMes(1, 2, 3); });

var tabla = new ActiveXObject(library + "cMatriz");
tabla.Dimension2D(1, 2, 1);
tabla.AddRow("uno", 1);
tabla.AddRow("dos", 2.5);
checkEqual("Rows", 2, tabla.Rows);
checkEqual("Item", "dos", tabla.Item(1, 2));
checkEqual("a number", 2.5, tabla.Item(2, 2));
checkEqual("nothing beyond the end", null, tabla.Item(9, 9));

WScript.Echo(checks + " checks, " + failures + " failed");
if (failures > 0) WScript.Quit(1);
