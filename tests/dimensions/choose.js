// A page script that lets the user choose a row, as the chooser's test runs it: it prints what it gets back.

function parse(xml) {
    var document = new ActiveXObject("Msxml2.DOMDocument.3.0");
    document.async = false;
    document.loadXML(xml);
    return document.documentElement;
}

function failure(call) {
    try {
        call();
        return "none";
    } catch (error) {
        return (error.number >>> 0).toString(16);
    }
}

var parts = new ActiveXObject("Tarnvale.nuxStdParts");
var names = parse("<n><A>Length</A><B/></n>").selectNodes("*");
var rows = parse("<r><s A='1' B='x'/><s A='2' B='y'/></r>").selectNodes("s");
var users = parse("<r><s A='3' B='z'/></r>").selectNodes("s");
var defaults = parse("<d><B>y</B></d>");

// A null is no object to the platform's own conversion of arguments: the call does not get as far as the component.
WScript.Echo("no names: " + failure(function () { parts.ChooseDimensions("", "", null, null, rows, users); }));
WScript.Echo("names of another kind: " +
    failure(function () { parts.ChooseDimensions("", "", defaults, null, rows, users); }));
WScript.Echo("rows of another kind: " +
    failure(function () { parts.ChooseDimensions("", "", names, null, defaults, users); }));
WScript.Echo("default values of another kind: " +
    failure(function () { parts.ChooseDimensions("", "", names, rows, rows, users); }));

var chosen = parts.ChooseDimensions("SCRIPT", "PART", names, defaults, rows, users);
WScript.Echo("chosen: " + chosen.getAttribute("A"));
var cancelled = parts.ChooseDimensions("SCRIPT", "PART", names, undefined, undefined, users);
WScript.Echo("cancelled: " + cancelled);
parts = null;
names = null;
rows = null;
users = null;
CollectGarbage();
WScript.Echo("still there: " + chosen.nodeName + " " + chosen.getAttribute("B"));
