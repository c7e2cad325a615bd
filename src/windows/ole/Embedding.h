#pragma once

#include "windows/ole/ActiveObject.h"
#include "windows/ole/ConnectionPoints.h"
#include "windows/ole/InPlaceObject.h"
#include "windows/ole/OleControl.h"
#include "windows/ole/OleObject.h"
#include "windows/ole/Persistence.h"
#include "windows/ole/QuickActivation.h"
#include "windows/ole/ViewObject.h"

namespace orv::windows {

/// All that makes an automation object a control which a container shows. The control's QueryInterface asks here for
/// what it has not itself.
class Embedding {
  public:
    /// Both must outlive it.
    Embedding(OleSite& site, control::Filter& filter) noexcept
        : design_(filter), activation_(site, filter), object_(site, activation_, design_), inPlace_(site, activation_),
          active_(site, activation_), control_(site, activation_), view_(site, activation_, design_, filter),
          stream_(site, activation_, design_), bag_(site, activation_, design_), points_(site.control),
          quick_(site, activation_, design_) {}

    /// The interface of that id, without a reference; null when there is none.
    void* find(REFIID id) noexcept {
        return findIn(id, object_, inPlace_, active_, control_, view_, stream_, bag_, points_, quick_);
    }

    Design& design() noexcept { return design_; }

  private:
    template <class... Parts>
    static void* findIn(REFIID id, Parts&... parts) noexcept {
        void* found = nullptr;
        static_cast<void>(((found = parts.find(id)) || ...));
        return found;
    }

    Design design_;
    Activation activation_;
    OleObject object_;
    InPlaceObject inPlace_;
    ActiveObject active_;
    OleControl control_;
    ViewObject view_;
    StreamPersistence stream_;
    BagPersistence bag_;
    ConnectionPoints points_;
    QuickActivation quick_;
};

} // namespace orv::windows
