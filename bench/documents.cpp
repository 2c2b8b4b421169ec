// The document layer, the message tables and the current component, against the same calls of the bare DOM.
//
//     bench_documents FOLDER
//
// FOLDER, with its closing separator, takes the files that are made for it.

#include <windows.h>

#include <msxml2.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Inux3D.h"
#include "bench/Measurement.h"
#include "bench/TestFiles.h"
#include "environment/Environment.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "environment/MessageTable.h"
#include "environment/XMLAccess.h"
#include "framework/ComObject.h"
#include "framework/Dispatch.h"
#include "framework/Text.h"
#include "nuxStdPartsAX.h"

using namespace nux;
using namespace nux::bench;

namespace {

void Require(bool condition, const char* what) {
    if (!condition)
        throw std::runtime_error(what);
}

/// What any program has to do to get a document.
ComPtr<IXMLDOMDocument> LoadBare(const std::string& url) {
    ComPtr<IXMLDOMDocument> document;
    Require(SUCCEEDED(CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER,
                                       IID_IXMLDOMDocument, document.ReceiveVoid())),
            "no DOM");
    document->put_async(VARIANT_FALSE);
    const Variant source(url);
    VARIANT_BOOL succeeded = VARIANT_FALSE;
    Require(document->load(source.Get(), &succeeded) == S_OK, "bare load failed");
    return document;
}

void Row(Table& table, const std::string& wanted, const std::string& what, const Times& ours,
         const Times& floor) {
    table.Row({Factor(Ratio(ours, floor)), wanted, what, Duration(ours.Best()), Duration(floor.Best()),
               Spread(ours, floor)});
}

double SecondsOfBareLoad(const std::string& url) {
    ComPtr<IXMLDOMDocument> document;
    return SecondsOf([&] { document = LoadBare(url); });
}

void CompareLoads(Table& table, const char* size, std::size_t parts) {
    WriteFile("load.xml", CatalogueFile(parts));
    const std::string url = TestUrl("load.xml");
    const auto miss = [&] {
        ComPtr<IXMLDOMDocument> document;
        const double seconds = SecondsOf([&] { LoadXMLDocument(url, document.Receive()); });
        Require(static_cast<bool>(document), "load failed");
        ClearXMLDocumentCache();
        return seconds;
    };
    const auto hit = [&] {
        constexpr int hits = 10000;
        ComPtr<IXMLDOMDocument> document;
        LoadXMLDocument(url, document.Receive());
        const double seconds = SecondsOf([&] {
            for (int i = 0; i < hits; ++i)
                LoadXMLDocument(url, document.Receive());
        });
        ClearXMLDocumentCache();
        return seconds / hits;
    };
    const auto times = MeasureInTurn(15, {[&] { return SecondsOfBareLoad(url); }, miss, hit});
    const std::string file = std::string(", a file of ") + size;
    Row(table, "", "`LoadXMLDocument`, miss" + file, times[1], times[0]);
    Row(table, "", "`LoadXMLDocument`, hit" + file, times[2], times[0]);
}

void CompareMessages(Table& table, bool shuffled) {
    constexpr std::size_t entries = 100000;
    constexpr int rounds = 7;
    const std::string folder = "locale\\" + InterfaceLanguage() + "\\";
    const std::string xml = MessageFile(entries, shuffled);

    // A catalogue's table is built once in a process: each round asks for a catalogue of its own.
    std::string catalogue;
    std::string file;
    int round = 0;
    const auto load = [&] {
        if (!file.empty())
            DeleteFileA(TestPath(file).c_str());
        catalogue = (shuffled ? "Shuffled" : "Sorted") + std::to_string(round++);
        file = folder + catalogue + "_Msgs.xml";
        WriteFile(file, xml);
        return SecondsOfBareLoad(TestUrl(file));
    };
    const auto loadAndRead = [&] {
        std::string text;
        const double seconds = SecondsOf([&] { text = GetLocalizedMessage(catalogue, MessageId(77)); });
        Require(text == Translation(77), "wrong translation");
        ClearXMLDocumentCache();
        return seconds;
    };
    const auto read = [&] {
        const ComPtr<IXMLDOMDocument> document = LoadBare(TestUrl(file));
        std::optional<MessageTable> messages;
        return SecondsOf([&] { messages.emplace(MessageTable::Read(document.Get())); });
    };
    const auto building = MeasureInTurn(rounds, {load, loadAndRead, read});
    DeleteFileA(TestPath(file).c_str());
    const std::string what = " of 100,000 messages, file " + std::string(shuffled ? "shuffled" : "sorted");
    Row(table, "1.5", "Building the table" + what + ": load and read", building[1], building[0]);
    Row(table, "", "Building the table" + what + ": read alone", building[2], building[0]);

    std::vector<std::string> ids;
    for (std::size_t i = 0; i < entries; ++i)
        ids.push_back(MessageId(i * 7919 % entries));
    std::size_t bytes = 0;
    const auto lookup = [&] {
        return SecondsOf([&] {
                   for (const std::string& id : ids)
                       bytes += GetLocalizedMessage(catalogue, id).size();
               }) /
               entries;
    };
    const Times lookups = MeasureInTurn(rounds, {lookup})[0];
    Require(bytes == (rounds + 1) * entries * Translation(0).size(), "messages without a translation");
    Times allowed;
    for (std::size_t i = 0; i < lookups.Rounds().size(); ++i)
        allowed.Add(2e-6);
    Row(table, "1", "One message" + what + ", against 2 microseconds", lookups, allowed);
}

/// An object of the host that stands for a component of the model.
class EditedComponent : public Dispatch<InuxEditedComponent> {
public:
    explicit EditedComponent(std::string id) : id_(std::move(id)) {}
    virtual ~EditedComponent() = default;

    STDMETHODIMP Close() override { return S_OK; }
    STDMETHODIMP GetValue(BSTR name, BSTR* value) override {
        *value = Bstr(std::wstring_view(name) == L"ID" ? id_ : catalogue, CP_ACP).Detach();
        return S_OK;
    }

    static constexpr char catalogue[] = "Pillars";

private:
    std::string id_;
};

/// The component as any client gets it, from the registered module. It works on the folder of the tests
/// without a host, so that all catalogues are the one that lies there.
ComPtr<InuxStdParts> MakeComponent() {
    ComPtr<InuxStdParts> parts;
    Require(SUCCEEDED(CoCreateInstance(CLSID_nuxStdParts, nullptr, CLSCTX_INPROC_SERVER, IID_InuxStdParts,
                                       parts.ReceiveVoid())),
            "no component");
    const Bstr path(TestPath(""), CP_ACP);
    const Bstr gui(TestPath("gui\\"), CP_ACP);
    Require(SUCCEEDED(parts->SetTRNVPaths(path.Get(), path.Get(), gui.Get(), path.Get())), "no paths");
    return parts;
}

void CompareComponents(Table& table) {
    constexpr std::size_t parts = 10000;
    WriteFile("Catalog.xml", CatalogueFile(parts));
    const ComPtr<IXMLDOMDocument> document = LoadBare(TestUrl("Catalog.xml"));
    const ComPtr<IXMLDOMNode> root = GetRootNode(document.Get());
    const auto compare = [&](const char* which, const std::string& id, bool found) {
        const int times = 20;
        const auto bare = [&] {
            return SecondsOf([&] {
                       for (int i = 0; i < times; ++i) {
                           ComPtr<IXMLDOMNode> part;
                           root->selectSingleNode(Bstr("//Part[ID='" + id + "']", CP_THREAD_ACP).Get(),
                                                  part.Receive());
                           Require(static_cast<bool>(part) == found, "wrong part");
                       }
                   }) /
                   times;
        };
        const auto ours = [&] {
            return SecondsOf([&] {
                       for (int i = 0; i < times; ++i)
                           Require(static_cast<bool>(FindComponentNode("", id)) == found, "wrong part");
                   }) /
                   times;
        };
        const auto seconds = MeasureInTurn(7, {bare, ours});
        Row(table, "", std::string("`FindComponentNode` among 10,000 parts, ") + which, seconds[1],
            seconds[0]);
    };
    compare("the first", PartId(0), true);
    compare("the last", PartId(parts - 1), true);
    compare("one that is missing", "none", false);
    ClearXMLDocumentCache();
}

/// GetComponent and SetEditedComponent against the selection of the part alone.
void CompareCurrentComponents(Table& table) {
    constexpr std::size_t count = 100000;
    WriteFile("Catalog.xml", CatalogueFile(count, "<Geometry>page.htm</Geometry>"));
    const ComPtr<IXMLDOMDocument> document = LoadBare(TestUrl("Catalog.xml"));
    const ComPtr<IXMLDOMNode> root = GetRootNode(document.Get());
    const ComPtr<InuxStdParts> component = MakeComponent();
    const Bstr catalogue(EditedComponent::catalogue, CP_ACP);
    for (const auto& [which, id] :
         {std::pair("the first", PartId(0)), std::pair("the last", PartId(count - 1))}) {
        const Bstr part(id, CP_ACP);
        const auto edited = MakeObject<EditedComponent>(id);
        VARIANT object{};
        object.vt = VT_DISPATCH;
        object.pdispVal = edited.Get();
        const auto bare = [&] {
            return SecondsOf([&] {
                ComPtr<IXMLDOMNode> found;
                root->selectSingleNode(Bstr("//Part[ID='" + id + "']", CP_THREAD_ACP).Get(), found.Receive());
                Require(static_cast<bool>(found), "no part");
            });
        };
        const auto get = [&] {
            const double seconds = SecondsOf([&] { component->GetComponent(catalogue.Get(), part.Get()); });
            Bstr taken;
            component->get_ComponentID(taken.Receive());
            Require(taken.View() == part.View(), "the component was not taken");
            return seconds;
        };
        const auto edit = [&] {
            HRESULT result = E_FAIL;
            const double seconds = SecondsOf([&] { result = component->SetEditedComponent(object, 1); });
            Require(result == S_OK, "the component was not edited");
            return seconds;
        };
        const auto seconds = MeasureInTurn(7, {bare, get, edit});
        Row(table, "1.1", std::string("`GetComponent` among 100,000 parts, ") + which, seconds[1],
            seconds[0]);
        Row(table, "1.1", std::string("`SetEditedComponent` among 100,000 parts, ") + which, seconds[2],
            seconds[0]);
    }
}

}  // namespace

int main(int count, char** arguments) try {
    Require(count == 2, "usage: bench_documents FOLDER");
    SetTestFolder(arguments[1]);
    OleInitialize(nullptr);
    MakeFolder("locale");
    MakeFolder("locale\\English_United_States");
    Installation().gui = TestPath("gui\\");
    Installation().catalog = TestPath("");
    InitEnvironment();
    Require(InterfaceLanguage() == "English_United_States", "not the language of this program");
    Heading("Documents and messages against the bare DOM");
    Table table({"Ours / floor", "At most", "Work", "Ours", "Floor", "Ours / floor by round"});
    CompareLoads(table, "20 kB", 220);
    CompareLoads(table, "1 MB", 11000);
    CompareMessages(table, false);
    CompareMessages(table, true);
    CompareComponents(table);
    CompareCurrentComponents(table);
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
}
