// SPDX-License-Identifier: MIT
#include "platform/sound/OnsetStrength.h"

#include <aubio/aubio.h>

namespace zelvo::sound {

namespace {

constexpr int kWindow = 1024;
/// A strength belongs to the middle of its window; so many strengths lie before the first sample.
constexpr int kHopsToMiddle = kWindow / 2 / OnsetStrength::kHop - 1;
constexpr smpl_t kCompression = 10;

template <class T, void (*destroy)(T*)> struct Destroy {
    void operator()(T* object) const { destroy(object); }
};

template <class T, void (*destroy)(T*)> using Owned = std::unique_ptr<T, Destroy<T, destroy>>;

} // namespace

struct OnsetStrength::Analysis {
    Owned<aubio_pvoc_t, del_aubio_pvoc> transform{new_aubio_pvoc(kWindow, kHop)};
    Owned<aubio_specdesc_t, del_aubio_specdesc> flux{new_aubio_specdesc("specflux", kWindow)};
    Owned<fvec_t, del_fvec> hop{new_fvec(kHop)};
    Owned<cvec_t, del_cvec> spectrum{new_cvec(kWindow)};
    Owned<fvec_t, del_fvec> strength{new_fvec(1)};
};

OnsetStrength::OnsetStrength()
    : analysis(std::make_unique<Analysis>())
    , hopsToDrop(kHopsToMiddle) {}

OnsetStrength::~OnsetStrength() = default;

void OnsetStrength::add(std::span<const float> samples) {
    for (const float sample : samples) {
        addEnergy(sample);
        fvec_set_sample(analysis->hop.get(), sample, static_cast<uint_t>(inHop));
        if (++inHop < kHop)
            continue;
        inHop = 0;
        aubio_pvoc_do(analysis->transform.get(), analysis->hop.get(), analysis->spectrum.get());
        cvec_logmag(analysis->spectrum.get(), kCompression);
        aubio_specdesc_do(analysis->flux.get(), analysis->spectrum.get(), analysis->strength.get());
        if (hopsToDrop > 0)
            --hopsToDrop;
        else
            strengths_.push_back(fvec_get_sample(analysis->strength.get(), 0));
    }
}

void OnsetStrength::addEnergy(float sample) {
    blockSum += sample * sample;
    if (++inBlock < kBlock)
        return;
    energies_.push_back(blockSum / kBlock);
    blockSum = 0.0F;
    inBlock = 0;
}

} // namespace zelvo::sound
