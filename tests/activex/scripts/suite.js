// What the lists of calls (calls.awk) share in this language.
var library = "TeselaControls_basicos.";
var checks = 0, failures = 0;

function failed(statement, words) {
    ++failures;
    WScript.Echo("FAILED " + statement + ": " + words);
}

function wordsOf(error) {
    return "error " + (error.number & 0xFFFF) + ", " + error.message;
}

function ran(statement, action) {
    ++checks;
    try {
        action();
    } catch (error) {
        failed(statement, wordsOf(error));
    }
}

function gave(statement, action, expected) {
    ++checks;
    try {
        var actual = action(), wanted = expected();
        if (actual !== wanted) failed(statement, "expected " + described(wanted) + ", got " + described(actual));
    } catch (error) {
        failed(statement, wordsOf(error));
    }
}

function refused(statement, action, number, words) {
    ++checks;
    try {
        action();
    } catch (error) {
        if ((error.number & 0xFFFF) === number && error.message === words) return;
        failed(statement, wordsOf(error) + " in place of " + number + ", " + words);
        return;
    }
    failed(statement, "no error, but " + number + " was to come");
}

function described(value) {
    return value + " (" + typeof value + ")";
}

function finish(expected) {
    WScript.Echo(checks + " checks, " + failures + " failed");
    if (checks !== expected) WScript.Echo(expected + " checks were to be made");
    if (failures > 0 || checks !== expected) WScript.Quit(1);
}

// Words of the lists.

function filled(text) {
    return text !== "";
}

function rounded(number) {
    return Math.round(number * 1000) / 1000;
}

function same(one, other) {
    return one === other;
}

function some(number) {
    return number !== 0;
}

// An object of the program, as far as the library asks it for something.
function drawnOn() {
    return { AutoRedraw: false, Refreshed: false, Refresh: function () { this.Refreshed = true; } };
}
