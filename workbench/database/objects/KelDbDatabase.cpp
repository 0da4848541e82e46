#include "KelDbDatabase.h"

#include "ObjectState.h"
#include "RtClass.h"
#include "engine/LayerEditing.h"
#include "engine/NewDrawing.h"
#include "files/DrawingFile.h"
#include "files/RemoteFiles.h"
#include "instruments/HostCalls.h"

#include <memory>

using engine::ObjectKind;
using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbDatabase, KelRtObject)

KelDbImpDatabase::~KelDbImpDatabase() = default;

namespace engine {

DatabaseImp& impOf(const KelDbDatabase& database) {
    return KelDbDatabaseAccess::imp(database);
}

} // namespace engine

engine::DatabaseImp& KelDbDatabaseAccess::imp(const KelDbDatabase& database) {
    return engine::impOf(*database.m_imp);
}

namespace {

template <class T>
Vorn::ErrorStatus openFixed(HostCall& call, const KelDbDatabase& database, ObjectKind kind, T*& object, int mode) {
    return call.status([&] {
        const KelDbObjectId id(engine::impOf(database).objects().fixed(kind));
        return engine::openAs(object, id, mode, false);
    });
}

KelDbObjectId currentLayerId(const engine::DatabaseImp& database) {
    const zdr::Drawing& drawing = database.drawing();
    if (drawing.currentLayer >= drawing.layers.size())
        return {};
    return KelDbObjectId(database.objects().layer(drawing.currentLayer));
}

} // namespace

// Only a database without a document is handed out; a document's own is never the module's to delete.
KelDbDatabase::KelDbDatabase(bool buildDefaultDrawing, bool noDocument) : m_imp(nullptr) {
    HostCall call("database.new", buildDefaultDrawing, noDocument);
    auto imp = std::make_unique<engine::DatabaseImp>(*this);
    if (buildDefaultDrawing)
        imp->adopt(engine::newDrawing());
    m_imp = imp.release();
    if (noDocument)
        instruments::entrust(this, "side database");
}

KelDbDatabase::~KelDbDatabase() {
    HostCall call("database.delete");
    instruments::giveBack(this);
    delete m_imp;
}

Vorn::ErrorStatus KelDbDatabase::readZdrFile(const wchar_t* fileName, int shareMode, bool allowConversion,
                                             const wchar_t* password) {
    HostCall call("readZdrFile", fileName, shareMode, allowConversion, password);
    return call.status([&] {
        if (!fileName)
            return Vorn::eFileNotFound;
        engine::DatabaseImp& imp = engine::impOf(*this);
        const zdr::FileToRead file(fileName, imp.fileProblem);
        if (!file.isHere())
            return Vorn::eFileUnreadable;
        zdr::Drawing drawing;
        const Vorn::ErrorStatus status = zdr::readDrawingFile(file.path(), drawing, imp.fileProblem);
        if (status == Vorn::eOk)
            imp.adopt(std::move(drawing));
        else
            file.tell(imp.fileProblem);
        return status;
    });
}

KelDbLayerStateManager* KelDbDatabase::getLayerStateManager() {
    HostCall call("getLayerStateManager");
    return call.answer(call.fault() ? nullptr : &engine::impOf(*this).stateManager());
}

KelDbImpDatabase* KelDbDatabase::impDatabase() {
    HostCall call("impDatabase");
    return call.answer(m_imp);
}

KelDbObjectId KelDbDatabase::clayer() const {
    HostCall call("clayer");
    return call.answer(currentLayerId(engine::impOf(*this)));
}

Vorn::ErrorStatus KelDbDatabase::setClayer(KelDbObjectId layer) {
    HostCall call("setClayer", layer);
    return call.status([&] {
        engine::DatabaseImp& imp = engine::impOf(*this);
        const KelDbStub* stub = layer.stub();
        if (!stub || stub->database != &imp || stub->kind != ObjectKind::Layer)
            return Vorn::eInvalidInput;
        if (stub->erased)
            return Vorn::eWasErased;
        if (stub->openForWrite)
            return Vorn::eWasOpenForWrite;
        return engine::setCurrentLayer(imp, stub->index);
    });
}

bool KelDbDatabase::plotStyleMode() const {
    HostCall call("plotStyleMode");
    return call.answer(engine::impOf(*this).drawing().colorDependentPlotStyles);
}

bool KelDbDatabase::tilemode() const {
    HostCall call("tilemode");
    return call.answer(!engine::impOf(*this).drawing().activeLayout);
}

Vorn::ErrorStatus KelDbDatabase::getPlotStyleNameDictionary(KelDbDictionaryWithDefault*& dictionary, int mode) {
    HostCall call("getPlotStyleNameDictionary", mode);
    return openFixed(call, *this, ObjectKind::PlotStyleDictionary, dictionary, mode);
}

Vorn::ErrorStatus KelDbDatabase::getSymbolTable(KelDbLayerTable*& table, int mode) {
    HostCall call("getLayerTable", mode);
    return openFixed(call, *this, ObjectKind::LayerTable, table, mode);
}

Vorn::ErrorStatus KelDbDatabase::getSymbolTable(KelDbLinetypeTable*& table, int mode) {
    HostCall call("getLinetypeTable", mode);
    return openFixed(call, *this, ObjectKind::LinetypeTable, table, mode);
}

KelDbObjectId KelDbDatabase::layerTableId() const {
    HostCall call("layerTableId");
    return call.answer(KelDbObjectId(engine::impOf(*this).objects().fixed(ObjectKind::LayerTable)));
}

KelDbObjectId KelDbDatabase::linetypeTableId() const {
    HostCall call("linetypeTableId");
    return call.answer(KelDbObjectId(engine::impOf(*this).objects().fixed(ObjectKind::LinetypeTable)));
}

Vorn::ErrorStatus KelDbDatabase::getKelDbObjectId(KelDbObjectId& id, bool createIfNotFound, const KelDbHandle& handle,
                                                  unsigned long reserved) {
    HostCall call("getKelDbObjectId", createIfNotFound, handle.value(), reserved);
    if (const auto status = call.fault())
        return call.answer(*status);
    KelDbStub* stub = engine::impOf(*this).objects().find(handle.value());
    if (!stub)
        return call.answer(Vorn::eKeyNotFound);
    id = KelDbObjectId(stub);
    call.out("id", id);
    return call.answer(Vorn::eOk);
}
