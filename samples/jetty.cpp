#include "jetty.h"

#include "light.h"
#include "noise.h"

namespace sample {
namespace {

// The jetty's own axes: u across it, v along it, y up.
constexpr float kHalfWidth = 0.85f, kEnd = 15.0f, kDeck = 0.55f, kThickness = 0.16f;
constexpr float kPlank = 0.145f, kPostRadius = 0.085f, kPostTop = 0.98f, kPostEvery = 3.4f;
constexpr Vec3 kFoot = {1.85f, 0, 3.6f};
constexpr float kAlongX = -0.18f, kAlongZ = 0.98367f;
constexpr Vec3 kLantern = {-kHalfWidth - 0.03f, kPostTop + 0.16f, kEnd - 0.4f};
constexpr Vec3 kFlame = {1.0f, 0.52f, 0.17f};

Vec3 toJetty(Vec3 p) { return {p.x * kAlongZ - p.z * kAlongX, p.y, p.x * kAlongX + p.z * kAlongZ}; }

/// The light on a piece of wood: sky from above and ahead, a last touch of sun from the left, the lantern.
Vec3 lightOn(Vec3 place, Vec3 normal) {
    const Vec3 sky = mix(Vec3{0.46f, 0.37f, 0.35f}, kSkylight * 0.95f, 0.5f + 0.5f * normal.y) *
                     (0.75f + 0.2f * std::abs(normal.z));
    const Vec3 sun = Vec3{0.30f, 0.15f, 0.08f} * std::max(0.0f, -0.86f * normal.x + 0.2f * normal.y);
    const Vec3 away = kLantern - place;
    const float squared = dot(away, away) + 0.02f;
    const Vec3 lamp = kFlame * (1.5f * std::max(0.0f, dot(normal, away) / std::sqrt(squared)) / squared);
    return sky + sun + lamp;
}

Vec3 woodColour(float along, float across, std::uint32_t piece) {
    const float shift = hash(int(piece), 3, 7) * 40.0f;
    const float grain = fractalNoise(along * 2.6f + shift, across * 60.0f, 4, 200);
    const float stain = fractalNoise(along * 1.3f, across * 2.2f + shift, 3, 210);
    const float tone =
        (0.62f + 0.5f * hash(int(piece), 5, 9)) * (0.45f + 0.85f * grain) * (0.6f + 0.8f * stain);
    const float crack = smoothstep(0.26f, 0.20f, fractalNoise(along * 1.1f + shift, across * 85.0f, 2, 220));
    return Vec3{0.27f, 0.225f, 0.19f} * (tone * (1.0f - 0.7f * crack));
}

/// The deck is wood where a plank is and a dark gap between two planks.
Vec3 deckLight(Vec3 place, Vec3 direction, float distance) {
    const float plank = place.z / kPlank;
    const int number = int(std::floor(plank));
    const float inPlank = plank - float(number);
    const float gap = 0.05f + 0.05f * hash(number, 1, 31);
    const float blur = distance * 0.0016f / kPlank;  // a gap thinner than a pixel only darkens
    const float edge = std::min(inPlank, 1.0f - inPlank);
    const float wood = smoothstep(gap * 0.5f - blur, gap * 0.5f + blur + 0.02f, edge);
    Vec3 colour = woodColour(place.x, place.z, std::uint32_t(number + 1000));
    for (const float nail : {-0.66f, 0.66f}) {
        const float du = place.x - nail, dv = (inPlank - 0.5f) * kPlank;
        colour = colour * (1.0f - 0.75f * smoothstep(0.011f, 0.006f, std::sqrt(du * du + dv * dv)));
    }
    const float tilt = 0.05f * (hash(number, 2, 33) - 0.5f);
    const Vec3 normal = normalised({tilt, 1.0f, 0.06f * (inPlank - 0.5f)});
    const float sheen = 0.03f + 0.45f * std::pow(1.0f - clamp01(-direction.y), 7.0f);
    const float damp = 0.4f + 0.9f * fractalNoise(place.x * 1.7f, place.z * 1.2f, 4, 230);
    const Vec3 lit = colour * lightOn(place, normal) + Vec3{0.52f, 0.45f, 0.46f} * (sheen * damp);
    return lit * mix(0.10f, 1.0f, wood);
}

void keepNearer(JettyHit& best, float distance, Vec3 light) {
    if (distance > 1e-3f && (best.distance < 0 || distance < best.distance)) best = {distance, light};
}

void seeDeck(JettyHit& best, Vec3 origin, Vec3 direction) {
    if (direction.y != 0) {  // from above, or the underside from the water
        const bool above = origin.y > kDeck;
        const float distance = ((above ? kDeck : kDeck - kThickness) - origin.y) / direction.y;
        const Vec3 place = origin + direction * distance;
        if (std::abs(place.x) < kHalfWidth + 0.05f * (hash(int(std::floor(place.z / kPlank)), 8, 3) - 0.5f) &&
            place.z < kEnd)
            keepNearer(best, distance,
                       above ? deckLight(place, direction, distance) : Vec3{0.012f, 0.010f, 0.009f});
    }
    for (const float side : {-kHalfWidth, kHalfWidth}) {
        if (direction.x == 0) break;
        const float distance = (side - origin.x) / direction.x;
        const Vec3 place = origin + direction * distance;
        if (place.y > kDeck || place.y < kDeck - kThickness || place.z > kEnd) continue;
        const Vec3 normal = {side < 0 ? -1.0f : 1.0f, 0, 0};
        keepNearer(best, distance, woodColour(place.z * 0.5f, place.y, 7) * lightOn(place, normal) * 0.8f);
    }
}

void seePost(JettyHit& best, Vec3 origin, Vec3 direction, float u, float v) {
    const float ox = origin.x - u, oz = origin.z - v;
    const float a = direction.x * direction.x + direction.z * direction.z;
    const float b = ox * direction.x + oz * direction.z;
    const float under = b * b - a * (ox * ox + oz * oz - kPostRadius * kPostRadius);
    if (under < 0) return;
    const float distance = (-b - std::sqrt(under)) / a;
    const Vec3 place = origin + direction * distance;
    if (place.y < -0.02f) return;  // the water hides it
    const float top = kPostTop + 0.08f * (hash(int(v * 10), u < 0, 5) - 0.5f);
    if (place.y < top) {
        const Vec3 normal = {(place.x - u) / kPostRadius, 0, (place.z - v) / kPostRadius};
        const float wet = smoothstep(0.05f, 0.28f, place.y);
        const Vec3 wood =
            woodColour(place.y * 0.8f, normal.x * 0.1f, std::uint32_t(v * 10) + (u < 0 ? 1u : 2u));
        keepNearer(best, distance, wood * lightOn(place, normal) * (0.35f + 0.65f * wet));
    } else if (direction.y < 0) {
        const float lid = (top - origin.y) / direction.y;
        const Vec3 cut = origin + direction * lid;
        if (std::hypot(cut.x - u, cut.z - v) < kPostRadius)
            keepNearer(best, lid, Vec3{0.24f, 0.2f, 0.17f} * lightOn(cut, {0, 1, 0}));
    }
}

/// A small lamp: a bright flame behind glass, under and over it a dark lid.
void seeLantern(JettyHit& best, Vec3 origin, Vec3 direction) {
    const Vec3 away = origin - kLantern;
    constexpr float kRadius = 0.075f, kTall = 0.15f;
    const float a = direction.x * direction.x + direction.z * direction.z;
    const float b = away.x * direction.x + away.z * direction.z;
    const float under = b * b - a * (away.x * away.x + away.z * away.z - kRadius * kRadius);
    if (under < 0) return;
    const float distance = (-b - std::sqrt(under)) / a;
    const Vec3 place = away + direction * distance;
    if (std::abs(place.y) > kTall) return;
    const float side = std::sqrt(std::max(0.0f, under / a)) / kRadius;  // 1 in the middle, 0 at the rim
    if (std::abs(place.y) > 0.105f || side < 0.3f)
        keepNearer(best, distance, {0.02f, 0.016f, 0.014f});
    else
        keepNearer(best, distance,
                   kFlame * (3.0f + 22.0f * std::exp(-90.0f * place.y * place.y - 3.0f * (1.0f - side))));
}

}  // namespace

JettyHit seeJetty(Vec3 origin, Vec3 direction) {
    const Vec3 from = toJetty(origin - kFoot), towards = toJetty(direction);
    JettyHit best;
    seeDeck(best, from, towards);
    for (float v = kEnd - 0.4f; v > -2.0f; v -= kPostEvery)
        for (const float u : {-kHalfWidth - 0.03f, kHalfWidth + 0.03f}) seePost(best, from, towards, u, v);
    seeLantern(best, from, towards);
    return best;
}

}  // namespace sample
