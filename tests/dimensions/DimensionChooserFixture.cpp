#include "tests/dimensions/DimensionChooserFixture.h"

#include "environment/LanguageTable.h"
#include "environment/Settings.h"
#include "framework/Module.h"
#include "framework/Text.h"
#include "tests/support/RawVariant.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

constexpr char versionKey[] = "Software\\Orvenna\\Exec\\Tarnvale";
constexpr char settingsKey[] = "Software\\Orvenna\\Tarnvale";

void ClearSettings() {
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, settingsKey);
}

void Store(const std::string& key, const char* value, DWORD type, const void* bytes, std::size_t size) {
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, key.c_str(), value, type, bytes, static_cast<DWORD>(size));
}

/// A VARIANT that holds the interface, or nothing for null.
void SetDispatch(RawVariant& variant, const ComPtr<IDispatch>& object) {
    if (!object)
        return;
    variant.vt = VT_DISPATCH;
    object.CopyTo(&variant.pdispVal);
}

template <class Interface>
ComPtr<IDispatch> AsDispatch(const ComPtr<Interface>& object) {
    return object;
}

ComPtr<IDispatch> RowsBelow(const std::optional<std::string>& xml) {
    return xml ? AsDispatch(SelectNodes(RootOf(ParseXml(*xml)), L"*")) : nullptr;
}

}  // namespace

DimensionChooserFixture::DimensionChooserFixture() : object_(MakeObject<nuxStdParts>()) {
    ClearSettings();
    folder_.MakeFolder("gui");
    Store(versionKey, "CurrentVersion", REG_SZ, "1.0", 4);
    SetResourceModule(nullptr);
    SetPaths();
}

DimensionChooserFixture::~DimensionChooserFixture() {
    ClearSettings();
}

void DimensionChooserFixture::SetPaths() {
    const Bstr catalogs(folder_.Path() + "catalogs\\", CP_ACP);
    const Bstr data(folder_.Path() + "data\\", CP_ACP);
    const Bstr gui(folder_.Path() + "gui\\", CP_ACP);
    const Bstr custom(folder_.Path() + "custom\\", CP_ACP);
    EXPECT_EQ(S_OK, object_->SetTRNVPaths(catalogs.Get(), data.Get(), gui.Get(), custom.Get()));
}

DimensionsCall DimensionChooserFixture::Call(const SizeTable& standard) {
    DimensionsCall call;
    call.names = standard.Names();
    call.standard = standard.Xml();
    return call;
}

DimensionsCall DimensionChooserFixture::Call(const SizeTable& standard, const SizeTable& users) {
    DimensionsCall call = Call(standard);
    call.users = users.Xml();
    return call;
}

DimensionsResult DimensionChooserFixture::Choose(const DimensionsCall& call,
                                                 const std::function<void(DimensionChooser&)>& deeds) {
    const Bstr catalog(Wide(call.catalog));
    const Bstr component(Wide(call.component));
    const ComPtr<IDispatch> names = AsDispatch(SelectNodes(RootOf(ParseXml(call.names)), L"*"));
    RawVariant defaults, standard, users;
    if (call.defaults)
        SetDispatch(defaults, AsDispatch(RootOf(ParseXml(*call.defaults))));
    SetDispatch(standard, RowsBelow(call.standard));
    SetDispatch(users, RowsBelow(call.users));

    return Run(
        [&](IDispatch** chosen) {
            return object_->ChooseDimensions(catalog.Get(), component.Get(), names.Get(), defaults, standard,
                                             users, chosen);
        },
        call.title, deeds);
}

DimensionsResult DimensionChooserFixture::ChooseFrom(IDispatch* names, const ComPtr<IDispatch>& standard,
                                                     const std::function<void(DimensionChooser&)>& deeds) {
    RawVariant none, rows;
    SetDispatch(rows, standard);
    return Run(
        [&](IDispatch** chosen) {
            return object_->ChooseDimensions(nullptr, nullptr, names, none, rows, none, chosen);
        },
        "Choose dimensions", deeds);
}

DimensionsResult DimensionChooserFixture::Run(const std::function<HRESULT(IDispatch**)>& call,
                                              const char* title,
                                              const std::function<void(DimensionChooser&)>& deeds) {
    DimensionsResult result;
    auto* const untouched = reinterpret_cast<IDispatch*>(&result);
    IDispatch* chosen = untouched;
    WithUser([&] { result.answer = call(&chosen); },
             [&](driver::User& user) {
                 DimensionChooser chooser(user, title);
                 deeds(chooser);
             });
    result.written = chosen != untouched;
    if (result.written) {
        ComPtr<IDispatch> row;
        row.Attach(chosen);
        result.row = row.As<IXMLDOMNode>();
    }
    return result;
}

void DimensionChooserFixture::Look(const DimensionsCall& call,
                                   const std::function<void(DimensionChooser&)>& deeds) {
    const DimensionsResult result = Choose(call, [&](DimensionChooser& chooser) {
        deeds(chooser);
        chooser.Cancel();
    });
    EXPECT_EQ(S_OK, result.answer);
    EXPECT_FALSE(result.written);
}

std::vector<std::string> DimensionChooserFixture::RowsOf(const DimensionsCall& call) {
    std::vector<std::string> rows;
    Look(call, [&](DimensionChooser& chooser) { rows = chooser.Rows(); });
    return rows;
}

std::string DimensionChooserFixture::Key(const std::string& column, const std::string& catalog,
                                         const std::string& component) {
    const std::string key =
        std::string(settingsKey) + "\\1.0\\ChooseStdDimsDlg\\" + catalog + "\\" + component;
    return column.empty() ? key : key + "\\Columns\\" + column;
}

void DimensionChooserFixture::StoreNumber(const std::string& column, const char* value, DWORD number) {
    Store(Key(column), value, REG_DWORD, &number, sizeof number);
}

void DimensionChooserFixture::StoreText(const std::string& column, const char* value,
                                        const std::string& text) {
    Store(Key(column), value, REG_SZ, text.c_str(), text.size() + 1);
}

void DimensionChooserFixture::StoreBytes(const std::string& column, const char* value, DWORD type,
                                         const std::string& bytes) {
    Store(Key(column), value, type, bytes.data(), bytes.size());
}

std::optional<DWORD> DimensionChooserFixture::StoredNumber(const std::string& column, const char* value) {
    DWORD number = 0;
    DWORD size = sizeof number;
    if (RegGetValueA(HKEY_LOCAL_MACHINE, Key(column).c_str(), value, RRF_RT_REG_DWORD, nullptr, &number,
                     &size))
        return std::nullopt;
    return number;
}

std::optional<std::string> DimensionChooserFixture::StoredText(const std::string& column, const char* value) {
    char text[1024];
    DWORD size = sizeof text;
    if (RegGetValueA(HKEY_LOCAL_MACHINE, Key(column).c_str(), value, RRF_RT_REG_SZ, nullptr, text, &size))
        return std::nullopt;
    return text;
}

void DimensionChooserFixture::StoreFilter(const std::string& column, DWORD type, const char* lower,
                                          const char* upper, DWORD database) {
    StoreNumber(column, "FilterType", type);
    StoreNumber(column, "Database", database);
    StoreText(column, "LowerLimit", lower);
    StoreText(column, "UpperLimit", upper);
}

bool DimensionChooserFixture::KeyExists(const std::string& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

void DimensionChooserFixture::Translate(const std::string& catalog,
                                        const std::vector<std::pair<std::string, std::string>>& pairs) {
    std::string messages = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Messages>";
    for (const auto& [id, text] : pairs)
        messages += "<MsgID>" + id + "</MsgID><Text>" + text + "</Text>";
    const std::string language(LanguageName(GetUserDefaultLangID()));
    folder_.Write("locale\\" + language + "\\" + catalog + "_Msgs.xml", messages + "</Messages>");
    SetPaths();
}

bool DecimalPoint() {
    char separator[5] = "";
    GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator);
    return separator[0] == '.';
}

std::string Whole(const char* digits) {
    return std::string(digits) + (DecimalPoint() ? ".0" : ".");
}

bool DoubleByteCodePage() {
    CPINFO info{};
    return GetCPInfo(CP_ACP, &info) && info.MaxCharSize > 1;
}

}  // namespace nux
