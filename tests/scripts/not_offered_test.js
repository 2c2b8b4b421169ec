// Operations that this version does not offer yet say so, and nothing else.

var parts = new ActiveXObject("Tarnvale.nuxStdParts");

function notOffered(name, call) {
    raises(E_NOTIMPL, name, call);
}

notOffered("NewComponent", function() { parts.NewComponent(0); });
notOffered("MessageBox", function() { parts.MessageBox("text", "title", 0); });
notOffered("MessageBoxHTML", function() { parts.MessageBoxHTML("text", "title", 0, true, 0, 0); });
notOffered("ShowHTMLModelessDialog",
           function() { parts.ShowHTMLModelessDialog("title", "page.htm", 0, 0, 100, 100, null); });
notOffered("ShowHTMLModalDialog",
           function() { parts.ShowHTMLModalDialog("title", "page.htm", 0, 0, 100, 100, null); });
notOffered("DeleteClosedModelessIEDlgs", function() { parts.DeleteClosedModelessIEDlgs(); });
finish();
