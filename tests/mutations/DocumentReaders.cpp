// Catalogue files, message files, and the texts by which documents and components are asked for.

#include <algorithm>

#include "control/nuxStdParts.h"
#include "environment/InstallationFiles.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "environment/MessageTable.h"
#include "environment/XMLAccess.h"
#include "tests/mutations/Documents.h"
#include "tests/mutations/Reader.h"

namespace nux {
namespace {

/// An installation in a folder of its own, and an object that was given its paths.
class DocumentReader : public Reader {
public:
    explicit DocumentReader(const Samples& samples) : samples_(samples) {
        folder_.MakeFolder("gui");
        folder_.MakeFolder("m");
        const Bstr catalogs(folder_.Path(), CP_ACP);
        const Bstr gui(folder_.Path() + "gui\\", CP_ACP);
        parts_->SetTRNVPaths(catalogs.Get(), catalogs.Get(), gui.Get(), catalogs.Get());
    }

protected:
    const Samples& samples_;
    const TempFolder folder_;
    const ComPtr<ComObject<nuxStdParts>> parts_ = MakeObject<nuxStdParts>();
};

/// Looks at a node as pages do. The texts are read for their own sake.
std::size_t LookAt(IXMLDOMNode* node) {
    if (!node)
        return 0;
    return GetNodeText(node).size() + GetWholeNodeText(node).size() + GetChildNodeText(node, "Name").size() +
           GetNodeAttribute(node, "title").size();
}

class Catalogues : public DocumentReader {
public:
    using DocumentReader::DocumentReader;

    bool Read(Random& random) override {
        Installation().catalog = folder_.Path() + "m\\";
        const bool loaded = KeepMutated(folder_, "m\\Catalog.xml",
                                        MutatedXml(random, random.Pick(samples_.catalogues)), random);
        if (!loaded && !random.OneIn(20))
            return false;  // what follows would ask the platform twice for a file that isn't there
        const ComPtr<IXMLDOMNode> part = FindComponentNode("", MutatedText(random, samples_.ids));
        Require(loaded || !part, "a component of a file that is no document");
        LookAt(part.Get());
        ComPtr<IDispatch> document;
        Require((parts_->GetComponentsDocument(Bstr(L"m").Get(), document.Receive()) == S_OK) == loaded,
                "a document that the component reads another time");
        if (const auto catalogue = document.As<IXMLDOMDocument>()) {
            const ComPtr<IXMLDOMNode> root = GetRootNode(catalogue.Get());
            LookAt(root.Get());
            if (root)
                ForEachChild(root.Get(), [&](IXMLDOMNode* child, IXMLDOMNode*) {
                    LookAt(child);
                    return !random.OneIn(3);
                });
        }
        ClearXMLDocumentCache();
        return loaded;
    }
};

/// A catalogue that stays, asked for IDs of any kind.
class Components : public DocumentReader {
public:
    using DocumentReader::DocumentReader;

    bool Read(Random& random) override {
        Installation().catalog = folder_.Path() + "m\\";
        const std::string url = CatalogURL(Installation().catalog);
        if (ComPtr<IXMLDOMDocument> document; !LoadXMLDocument(url, document.Receive())) {
            folder_.Write("m\\Catalog.xml", samples_.catalogues.front());
            Require(LoadXMLDocument(url, document.Receive()), "the catalogue of the sample");
        }
        const std::string id = MutatedText(random, samples_.ids);
        const ComPtr<IXMLDOMNode> part = FindComponentNode("", id);
        if (part)
            Require(id == GetChildNodeText(part.Get(), "ID"), "a component of another ID");
        return static_cast<bool>(part);
    }
};

class Messages : public DocumentReader {
public:
    using DocumentReader::DocumentReader;

    bool Read(Random& random) override {
        const bool loaded =
            KeepMutated(folder_, "m.xml", MutatedXml(random, random.Pick(samples_.messages)), random);
        ComPtr<IXMLDOMDocument> document;
        if (loaded && LoadXMLDocument(folder_.Url("m.xml"), document.Receive())) {
            const MessageTable table = MessageTable::Read(document.Get());
            for (int asked = 0; asked < 4; ++asked) {
                const std::string* text = table.Find(MutatedText(random, samples_.texts));
                Require(!text || !text->empty(), "a translation that is empty");
            }
        }
        ClearXMLDocumentCache();
        return loaded;
    }
};

/// The whole way of a translation. Tables and their names are kept for the life of the process.
class Localisations : public DocumentReader {
public:
    explicit Localisations(const Samples& samples) : DocumentReader(samples) {
        folder_.MakeFolder("locale\\" + language_);
    }

    bool Read(Random& random) override {
        Installation().gui = folder_.Path() + "gui\\";
        Installation().catalog = folder_.Path();
        SetInterfaceLanguage(language_);
        const std::string catalogue = "m" + std::to_string(random.Next());
        const std::string file = "locale\\" + language_ + "\\" + catalogue + "_Msgs.xml";
        folder_.Write(file, MutatedXml(random, random.Pick(samples_.messages)));
        bool translated = false;
        for (int asked = 0; asked < 8; ++asked) {
            const std::string id = MutatedText(random, samples_.texts);
            const std::string text = GetLocalizedMessage(catalogue, id);
            Require(!text.empty() || id.empty(), "a message without a text");
            translated |= text != id;
        }
        const std::string name = MutatedBytes(random, catalogue);
        Require(!GetLocalizedMessage(name, "x").empty(), "a message of a catalogue of that name");
        folder_.Remove(file);
        SetInterfaceLanguage({});
        ClearXMLDocumentCache();
        return translated;
    }

private:
    const std::string language_ = "German";
};

/// What a page gives for a URL.
class Urls : public DocumentReader {
public:
    explicit Urls(const Samples& samples) : DocumentReader(samples) {
        folder_.Write("a.xml", "<a>good</a>");
        known_ = {folder_.Url("a.xml"),
                  folder_.Url("m\\..\\a.xml"),
                  folder_.Path() + "a.xml",
                  "a.xml",
                  "about:blank",
                  "res://nux.dll/a.xml",
                  "file:///" + folder_.Path() + "a.xml",
                  "file://"};
    }

    bool Read(Random& random) override {
        std::string url = MutatedText(random, known_);
        if (random.OneIn(8)) {  // around the longest that is loaded
            const std::size_t length = 2'040 + random.Below(120);
            const std::size_t at = std::min<std::size_t>(url.size(), 10);
            if (url.size() < length)
                url.insert(at, length - url.size(), random.Pick(std::string_view("x\\/.% \xE4")));
        }
        ComPtr<IDispatch> document;
        const HRESULT result = parts_->GetXMLDocument(Bstr(url, CP_ACP).Get(), document.Receive());
        Require(result == (document ? S_OK : E_FAIL), "a result of another kind");
        ClearXMLDocumentCache();
        return result == S_OK;
    }

private:
    std::vector<std::string> known_;
};

/// The four paths, which start the environment.
class Paths : public DocumentReader {
public:
    using DocumentReader::DocumentReader;

    bool Read(Random& random) override {
        const std::vector<std::string> known{folder_.Path(), folder_.Path() + "gui\\", "C:\\", "", "x"};
        const auto path = [&] { return Bstr(MutatedText(random, known), CP_ACP); };
        const Bstr catalog = path(), data = path(), gui = path(), custom = path();
        Require(parts_->SetTRNVPaths(catalog.Get(), data.Get(), gui.Get(), custom.Get()) == S_OK,
                "the start");
        const Bstr id(MutatedText(random, samples_.ids), CP_ACP);
        ComPtr<IDispatch> document;
        parts_->GetComponentsDocument(id.Get(), document.Receive());
        parts_->GetStdDimensionNode(id.Get(), id.Get(), document.Receive());
        Bstr text;
        Require(parts_->GetLocalizedString(Bstr(L"COMMON").Get(), id.Get(), text.Receive()) == S_OK,
                "a message");
        ClearXMLDocumentCache();
        return static_cast<bool>(document);
    }
};

constexpr ReaderKind kinds[] = {
    {"catalogues", "catalogue files, their components and nodes", 60, 0, Make<Catalogues>},
    {"components", "IDs of components", 800, 0, Make<Components>},
    {"messages", "message files and the texts of messages", 400, 0, Make<Messages>},
    {"localisations", "message files found by language and catalogue", 10, 12'000, Make<Localisations>},
    {"urls", "URLs of documents", 120, 0, Make<Urls>},
    {"paths", "the installation's paths", 100, 0, Make<Paths>}};

}  // namespace

std::span<const ReaderKind> DocumentReaders() noexcept {
    return kinds;
}

}  // namespace nux
