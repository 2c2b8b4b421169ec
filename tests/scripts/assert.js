// Assertions of the script tests in JScript. run-script puts this file before the test, which calls finish()
// last.

var checks = 0;
var failures = 0;

function fail(text) {
    ++failures;
    WScript.Echo("FAILED: " + text);
}

function shown(value) {
    return typeof value + " " + (typeof value === "object" ? "" : String(value));
}

/// The value, of the same type, is what is expected.
function equal(expected, value, what) {
    ++checks;
    if (value !== expected)
        fail(what + ": " + shown(value) + " instead of " + shown(expected));
}

function isTrue(value, what) {
    equal(true, value, what);
}

/// The call raises an error with this code, and says why; `code` is read as 32 bits without a sign.
function raises(code, what, call) {
    ++checks;
    try {
        call();
    } catch (error) {
        if (error.number >>> 0 !== code)
            fail(what + ": raised " + (error.number >>> 0).toString(16) + " instead of " + code.toString(16));
        else if (!error.message)
            fail(what + ": does not say why");
        return;
    }
    fail(what + ": raised nothing instead of " + code.toString(16));
}

/// Ends the test. The last line and the exit code tell whether it has passed.
function finish() {
    if (failures === 0)
        WScript.Echo("all " + checks + " checks passed");
    else
        WScript.Echo(failures + " of " + checks + " checks failed");
    WScript.Quit(failures === 0 ? 0 : 1);
}

var E_NOTIMPL = 0x80004001;
var E_FAIL = 0x80004005;
var E_INVALIDARG = 0x80070057;
