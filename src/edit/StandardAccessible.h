// What assistive programs, such as screen readers, are told about a window: the system's own answers, as a base for a
// class that gives better ones to some questions.
#pragma once

#include <oleacc.h>

#include <memory>
#include <utility>

/// Gives an interface's reference back.
struct ReleasesInterface {
    void operator()(IUnknown* object) const { object->Release(); }
};
using AccessibleHolder = std::unique_ptr<IAccessible, ReleasesInterface>;

/// Hands every question on to the system's object for the window's client area. Whoever asks holds references and may
/// keep them longer than the window lives; after disconnect() each question is answered by CO_E_OBJNOTCONNECTED.
class StandardAccessible : public IAccessible {
  public:
    StandardAccessible(const StandardAccessible&) = delete;
    StandardAccessible& operator=(const StandardAccessible&) = delete;

    /// Ends the connection with the window, and takes the object away from other threads and programs.
    virtual void disconnect();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) final;
    ULONG STDMETHODCALLTYPE AddRef() final;
    ULONG STDMETHODCALLTYPE Release() final;

    // There is no calling by name: the system's object would answer it in this one's place.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) final;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) final;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* members) final;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) final;

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) final;
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) final;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) final;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) final;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) final;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) final;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) final;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, long* topic) final;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) final;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) final;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) final;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) final;
    HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT child) final;
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height, VARIANT child) final;
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* end) final;
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* child) final;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) final;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) final;
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) final;

  protected:
    /// With one reference, which is the maker's.
    /// @param standard the system's object
    explicit StandardAccessible(AccessibleHolder standard) : m_standard(std::move(standard)) {}
    virtual ~StandardAccessible() = default;

  private:
    template <class Question, class... Arguments> HRESULT ask(Question question, Arguments&... arguments);

    AccessibleHolder m_standard;
    LONG m_references = 1;
};
