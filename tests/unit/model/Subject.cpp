#include "Subject.h"

#include "KelDbPointers.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <stdexcept>

namespace model {
namespace {

std::string answer(Vorn::ErrorStatus status) {
    return std::to_string(status);
}

std::string truth(bool value) {
    return value ? "true" : "false";
}

std::wstring numbered(std::uint32_t number) {
    return L"text " + std::to_wstring(number);
}

void require(Vorn::ErrorStatus status, const std::wstring& reason) {
    if (status != Vorn::eOk)
        throw std::runtime_error("the drawing can't be saved and read: " + zdr::toUtf8(reason));
}

} // namespace

Subject::Subject() {
    keldbHostApplicationServices()->setWorkingDatabase(&m_database);
    start(false);
}

Subject::~Subject() {
    keldbHostApplicationServices()->setWorkingDatabase(nullptr);
}

void Subject::start(bool colorDependent) {
    engine::replaceDrawing(m_database, engineDrawing(Model::start(colorDependent)));
}

std::string Subject::apply(const Operation& operation) {
    if (operation.kind <= Kind::Compare)
        return applyToState(operation);
    if (operation.kind <= Kind::SetCurrent)
        return applyToLayer(operation);
    return applyToDrawing(operation);
}

std::string Subject::applyToState(const Operation& operation) {
    const Arguments& a = operation.arguments;
    const std::wstring text = wide(stateName(a[0]));
    const wchar_t* name = text.c_str();
    const bool own = a[3] == kOwnMask;
    const LayerStateMask* mask = own ? nullptr : &a[3];
    const auto flags = static_cast<int>(a[2]);
    switch (operation.kind) {
    case Kind::Save:
        return answer(states().saveLayerState(name, a[1]));
    case Kind::SaveWithViewport:
        return answer(states().saveLayerState(name, a[1], viewportId(a[2])));
    case Kind::Restore:
        return answer(states().restoreLayerState(name, viewportId(a[1]), flags, mask));
    case Kind::RestoreQuietly:
        return answer(impStates().restoreLayerState(name, viewportId(a[1]), flags, mask, a[4] != 0));
    case Kind::Rename:
        return answer(states().renameLayerState(name, wide(stateName(a[1])).c_str()));
    case Kind::Delete:
        return answer(states().deleteLayerState(name));
    case Kind::SetMask:
        return answer(states().setLayerStateMask(name, a[1]));
    case Kind::Describe:
        return answer(states().setLayerStateDescription(name, numbered(a[1]).c_str()));
    case Kind::AddLayersToState:
        return answer(addLayers(name, a[1]));
    case Kind::RemoveLayersFromState:
        return answer(removeLayers(name, a[1]));
    case Kind::UpdateStateLayer:
        return truth(updateLayer(name, a));
    case Kind::AskLayers:
        return askLayers(name, a[1] != 0);
    default:
        return truth(states().compareLayerStateToDb(name, viewportId(a[1])));
    }
}

Vorn::ErrorStatus Subject::addLayers(const wchar_t* name, std::uint32_t bits) {
    KelArray<KelDbObjectId> ids;
    for (const std::string_view layer : layerNames(bits))
        if (const std::size_t index = engine::layerIndex(m_database, wide(layer)); index != zdr::kNone)
            ids.append(engine::layerId(m_database, index));
    return states().addLayerStateLayers(name, ids);
}

Vorn::ErrorStatus Subject::removeLayers(const wchar_t* name, std::uint32_t bits) {
    KelArray<KelString> names;
    for (const std::string_view layer : layerNames(bits))
        names.append(wide(layer).c_str());
    return states().removeLayerStateLayers(name, names);
}

bool Subject::updateLayer(const wchar_t* name, const Arguments& arguments) {
    const Look look = lookOf(arguments[2]);
    KelDbLayerTableRecord record;
    record.setName(wide(layerName(arguments[1])).c_str());
    for (const Property property : {kOff, kFrozen, kLocked, kPlot, kNewViewport, kColor, kWeight, kPlotStyle})
        setLayer(record, property, look);
    record.setLinetypeObjectId(linetypeId(look.linetype));
    return impStates().updateLayerStateLayer(name, &record, arguments[3] != 0);
}

std::string Subject::askLayers(const wchar_t* name, bool others) {
    KelArray<KelString> layers;
    const Vorn::ErrorStatus status = states().getLayerStateLayers(layers, name, others);
    std::string text = answer(status);
    for (const KelString& layer : layers)
        text += ' ' + folded(narrow(layer.kwszPtr()));
    return text;
}

std::string Subject::applyToLayer(const Operation& operation) {
    const Arguments& a = operation.arguments;
    const std::size_t index = engine::layerIndex(m_database, wide(layerName(a[0])));
    const KelDbObjectId id = index == zdr::kNone ? KelDbObjectId() : engine::layerId(m_database, index);
    if (operation.kind == Kind::AddLayer)
        return answer(addLayer(a));
    if (operation.kind == Kind::SetCurrent)
        return answer(m_database.setClayer(id));
    if (id.isNull())
        return "no layer";
    if (operation.kind == Kind::EraseLayer)
        return answer(engine::removeLayer(m_database, index));
    KelDbObjectPointer<KelDbLayerTableRecord> record(id, KelDb::kForWrite);
    if (operation.kind == Kind::SetLayer)
        return answer(setLayer(*record.object(), a[1], lookOf(a[2])));
    if (operation.kind == Kind::DescribeLayer)
        return answer(record->setDescription(numbered(a[1]).c_str()));
    return answer(record->setName(wide(layerName(a[1])).c_str()));
}

Vorn::ErrorStatus Subject::setLayer(KelDbLayerTableRecord& record, std::uint32_t property, const Look& look) {
    const auto has = [&look](std::uint32_t flag) { return (look.flags & flag) != 0; };
    switch (property) {
    case kOff:
        record.setIsOff(!has(zdr::kLayerOn));
        break;
    case kFrozen:
        return record.setIsFrozen(has(zdr::kLayerFrozen));
    case kLocked:
        record.setIsLocked(has(zdr::kLayerLocked));
        break;
    case kPlot:
        return record.setIsPlottable(has(zdr::kLayerPlot));
    case kNewViewport:
        record.setVPDFLT(has(zdr::kLayerNewViewportFrozen));
        break;
    case kColor:
        record.setColor(look.color);
        break;
    case kLinetype:
        record.setLinetypeObjectId(linetypeId(look.linetype));
        break;
    case kWeight:
        return record.setLineWeight(look.weight);
    default:
        return record.setPlotStyleName(wide(look.plotStyle).c_str());
    }
    return Vorn::eOk;
}

Vorn::ErrorStatus Subject::addLayer(const Arguments& arguments) {
    const Look look = lookOf(arguments[1]);
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForWrite);
    KelDbObjectPointer<KelDbLayerTableRecord> record;
    record.create();
    record->setName(wide(layerName(arguments[0])).c_str());
    for (const Property property : {kOff, kFrozen, kLocked, kPlot, kNewViewport, kColor, kWeight, kPlotStyle})
        setLayer(*record.object(), property, look);
    record->setLinetypeObjectId(linetypeId(look.linetype));
    KelDbObjectId id;
    return table->add(id, record);
}

Vorn::ErrorStatus Subject::setData(KelDbLayerTableRecord& record, const Arguments& arguments) {
    std::wstring application = wide(applicationName(arguments[1]));
    ResultBuffer number{nullptr, kExtendedInt32, {}};
    number.value.int32 = static_cast<std::int32_t>(arguments[2]);
    ResultBuffer head{arguments[2] ? &number : nullptr, kExtendedAppName, {}};
    head.value.string = application.data();
    return record.setExtendedData(&head);
}

std::string Subject::applyToDrawing(const Operation& operation) {
    const Arguments& a = operation.arguments;
    const std::wstring text = a[0] < 8 ? wide(stateName(a[0])) : std::wstring();
    switch (operation.kind) {
    case Kind::SetLayout:
        return answer(
            engine::setActiveLayout(m_database, a[0] == 0 ? std::nullopt : std::optional<std::size_t>(a[0] - 1)));
    case Kind::SetViewport:
        return answer(engine::setCurrentViewport(m_database, viewportHandle(a[0])));
    case Kind::FreezeInViewport:
    case Kind::Override:
        return changeViewport(operation);
    case Kind::Attach:
        engine::attachReference(m_database, 0, std::make_shared<zdr::Drawing>(engineDrawing(Model::site(a[0]))));
        return "";
    case Kind::Detach:
        engine::attachReference(m_database, 0, nullptr);
        return "";
    case Kind::Begin:
        engine::beginUndoGroup(m_database);
        return "";
    case Kind::End:
        engine::endUndoGroup(m_database);
        return "";
    case Kind::Undo:
        return truth(engine::undo(m_database));
    case Kind::Redo:
        return truth(engine::redo(m_database));
    case Kind::Reload:
        return answer(reload());
    case Kind::Shelve:
        shelve();
        return "";
    case Kind::ImportFromShelf:
        return answer(states().importLayerStateFromDb(text.c_str(), &m_shelf));
    case Kind::Export:
        return answer(states().exportLayerState(text.c_str(), file(a[1]).c_str()));
    case Kind::Import:
        return import(a[0]);
    case Kind::Clone:
        return answer(clone(text.c_str()));
    case Kind::PutBack:
        return answer(putBack(text.c_str()));
    case Kind::RegisterApplication:
        return truth(keldbRegApp(wide(applicationName(a[0])).c_str()));
    case Kind::SetData: {
        const std::size_t index = engine::layerIndex(m_database, wide(layerName(a[0])));
        if (index == zdr::kNone)
            return "no layer";
        KelDbObjectPointer<KelDbLayerTableRecord> record(engine::layerId(m_database, index), KelDb::kForWrite);
        return answer(setData(*record.object(), a));
    }
    default:
        start(a[0] % 2 != 0);
        return "";
    }
}

std::string Subject::changeViewport(const Operation& operation) {
    const Arguments& a = operation.arguments;
    const auto viewport = viewportHandle(a[0]);
    const std::size_t layer = engine::layerIndex(m_database, wide(layerName(a[1])));
    if (!viewport || layer == zdr::kNone)
        return "nothing";
    if (operation.kind == Kind::FreezeInViewport) {
        engine::setFrozenInViewport(m_database, *viewport, layer, a[2] != 0);
        return "";
    }
    const Look look = lookOf(a[3]);
    // Only styles that the drawing has.
    const zdr::Drawing& drawing = engine::drawingOf(m_database);
    const zdr::NameId linetype = drawing.names.find(wide(look.linetype));
    const zdr::NameId plotStyle = drawing.names.find(wide(look.plotStyle));
    std::uint32_t mask = a[2] & MaskOverridable;
    if (std::ranges::find(drawing.linetypes, linetype, &zdr::Linetype::name) == drawing.linetypes.end())
        mask &= ~MaskLinetype;
    if (std::ranges::find(drawing.plotStyles, plotStyle, &zdr::PlotStyle::name) == drawing.plotStyles.end())
        mask &= ~MaskPlotStyle;
    engine::setOverride(m_database, *viewport,
                        {layer, mask, engine::colorId(m_database, look.color), linetype,
                         static_cast<std::int16_t>(look.weight), plotStyle});
    return "";
}

// Through a file, as when the drawing is closed and opened.
Vorn::ErrorStatus Subject::reload() {
    const std::wstring path = m_folder.file(L"drawing.zdr");
    std::vector<std::byte> bytes;
    std::wstring reason;
    require(zdr::drawingBytes(engine::drawingOf(m_database), bytes, reason), reason);
    writeBytes(path, bytes);
    const Vorn::ErrorStatus status = m_database.readZdrFile(path.c_str(), 64, false, nullptr);
    require(status, engine::lastFileProblem(m_database));
    return status;
}

void Subject::shelve() {
    std::vector<std::byte> bytes;
    std::wstring reason;
    zdr::Drawing copy;
    require(zdr::drawingBytes(engine::drawingOf(m_database), bytes, reason), reason);
    require(zdr::readDrawingBytes(bytes, L"shelf", copy, reason), reason);
    engine::replaceDrawing(m_shelf, std::move(copy));
}

std::string Subject::import(std::uint32_t number) {
    KelString name;
    const Vorn::ErrorStatus status = states().importLayerState(file(number).c_str(), name);
    return answer(status) + " " + narrow(name.kwszPtr());
}

Vorn::ErrorStatus Subject::clone(const wchar_t* name) {
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForRead);
    KelDbObjectId id;
    const Vorn::ErrorStatus status = dictionary->getAt(name, id);
    if (status != Vorn::eOk)
        return status;
    KelDbObjectPointer<KelDbXrecord> record(id, KelDb::kForRead);
    m_clone.reset(record->clone());
    return Vorn::eOk;
}

Vorn::ErrorStatus Subject::putBack(const wchar_t* name) {
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForWrite);
    KelDbObjectId id;
    const Vorn::ErrorStatus status = dictionary->setAt(name, m_clone.get(), id);
    if (status == Vorn::eOk)
        m_clone.release()->close();
    return status;
}

std::optional<zdr::Handle> Subject::viewportHandle(std::uint32_t argument) const {
    if (argument == 0)
        return std::nullopt;
    const auto& layouts = engine::drawingOf(m_database).layouts;
    return argument < kViewportCount ? layouts[0].viewports[argument - 1].handle : layouts[1].viewports[0].handle;
}

KelDbObjectId Subject::viewportId(std::uint32_t argument) const {
    const auto handle = viewportHandle(argument);
    return handle ? engine::objectId(m_database, *handle) : KelDbObjectId();
}

KelDbObjectId Subject::linetypeId(const std::string& name) {
    KelDbSymbolTablePointer<KelDbLinetypeTable> table(&m_database, KelDb::kForRead);
    KelDbObjectId id;
    table->getAt(wide(name).c_str(), id);
    return id;
}

std::wstring Subject::file(std::uint32_t number) const {
    return m_folder.file(L"state" + std::to_wstring(number) + L".las");
}

} // namespace model
