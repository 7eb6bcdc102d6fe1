#pragma once

namespace chromalog {

/// A calibrated RGB colour with alpha: four doubles in 0..1, clamped when the colour is made (no number
/// counts as 0). A colour made from hue, saturation and brightness remembers its hue and saturation, so that
/// brightness 0 or saturation 0 does not lose them; every other colour derives them from its components.
class Colour {
  public:
    constexpr Colour() = default; ///< opaque black
    static Colour rgb(double red, double green, double blue, double alpha = 1.0);
    /// Hue is a fraction of a full turn; 1.0 counts as 0.
    static Colour hsb(double hue, double saturation, double brightness, double alpha = 1.0);

    double red() const { return red_; }
    double green() const { return green_; }
    double blue() const { return blue_; }
    double alpha() const { return alpha_; }
    double hue() const;        ///< 0..1 exclusive; 0 for greys
    double saturation() const; ///< 0..1; 0 for black
    double brightness() const; ///< the largest component

    Colour withAlpha(double alpha) const; ///< keeps remembered hue and saturation

    /// Equal red, green and blue, compared exactly; alpha and memory play no part.
    bool sameRgb(const Colour& other) const {
        return red_ == other.red_ && green_ == other.green_ && blue_ == other.blue_;
    }

  private:
    double red_ = 0, green_ = 0, blue_ = 0, alpha_ = 1;
    bool remembers_ = false;
    double hue_ = 0, saturation_ = 0; ///< valid while remembers_
};

} // namespace chromalog
