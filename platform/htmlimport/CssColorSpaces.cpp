// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssColorSpaces.h"

#include "platform/htmlimport/CssLengths.h"
#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace platform::css {

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr double degree = 3.14159265358979323846 / 180;

// The matrices and functions of the CSS Color Module. XYZ is relative to the white of D65 unless it
// says D50.
constexpr Matrix linearSrgbFromXyz = {{{3.2409699419045226, -1.537383177570094, -0.4986107602930034},
                                       {-0.9692436362808796, 1.8759675015077202,
                                        0.04155505740717559},
                                       {0.05563007969699366, -0.20397695888897652,
                                        1.0569715142428786}}};
constexpr Matrix xyzFromXyzD50 = {{{0.9554734527042182, -0.023098536874261423, 0.0632593086610217},
                                   {-0.028369706963208136, 1.0099954580058226,
                                    0.021041398966943008},
                                   {0.012314001688319899, -0.020507696433477912,
                                    1.3303659366080753}}};
constexpr Matrix xyzFromDisplayP3 = {{{0.4865709486482162, 0.26566769316909306, 0.1982172852343625},
                                      {0.2289745640697488, 0.6917385218365064, 0.079286914093745},
                                      {0, 0.04511338185890264, 1.043944368900976}}};
constexpr Matrix xyzFromA98 = {{{0.5766690429101305, 0.1855582379065463, 0.1882286462349947},
                                {0.29734497525053605, 0.6273635662554661, 0.0752914584939978},
                                {0.02703136138641234, 0.07068885253582723, 0.9913375368376388}}};
constexpr Matrix xyzFromRec2020 = {{{0.6369580483012914, 0.14461690358620832, 0.1688809751641721},
                                    {0.2627002120112671, 0.6779980715188708, 0.05930171646986196},
                                    {0, 0.028072693049087428, 1.060985057710791}}};
constexpr Matrix xyzD50FromProphoto = {{{0.7977604896723027, 0.13518583717574031,
                                         0.0313493495815248},
                                        {0.2880711282292934, 0.7118432178101014,
                                         0.00008565396060525902},
                                        {0, 0, 0.8251046025104601}}};
constexpr Matrix conesFromOklab = {{{1, 0.3963377773761749, 0.2158037573099136},
                                    {1, -0.1055613458156586, -0.0638541728258133},
                                    {1, -0.0894841775298119, -1.2914855480194092}}};
constexpr Matrix linearSrgbFromCones = {{{4.0767416360759574, -3.3077115392580616,
                                          0.2309699031821044},
                                         {-1.2684379732850317, 2.6097573492876887,
                                          -0.3413193760026573},
                                         {-0.0041960761386756, -0.7034186179359362,
                                          1.7076146940746117}}};

Triple operator*(const Matrix& matrix, const Triple& vector)
{
    Triple product{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            product[row] += matrix[row][column] * vector[column];
    }
    return product;
}

template<typename Function>
Triple each(const Triple& components, Function function)
{
    Triple result;
    for (std::size_t index = 0; index < 3; ++index)
        result[index] = std::copysign(function(std::abs(components[index])), components[index]);
    return result;
}

double srgbFromLinear(double value)
{
    return value <= 0.0031308 ? 12.92 * value : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
}
double linearFromSrgb(double value)
{
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}
double linearFromRec2020(double value)
{
    constexpr double alpha = 1.09929682680944;
    constexpr double beta = 0.018053968510807;
    return value < beta * 4.5 ? value / 4.5 : std::pow((value + alpha - 1) / alpha, 1 / 0.45);
}
double linearFromProphoto(double value)
{
    return value <= 16.0 / 512 ? value / 16 : std::pow(value, 1.8);
}
double linearFromA98(double value)
{
    return std::pow(value, 563.0 / 256);
}

Color screenColor(const Triple& linear, double alpha)
{
    const Triple components = each(linear, srgbFromLinear);
    return {std::clamp(components[0], 0.0, 1.0), std::clamp(components[1], 0.0, 1.0),
            std::clamp(components[2], 0.0, 1.0), alpha};
}

// The lightness from 0 to 100, with D50's white.
Triple xyzFromLab(const Triple& lab)
{
    constexpr double epsilon = 216.0 / 24389;
    constexpr double kappa = 24389.0 / 27;
    constexpr Triple white = {0.3457 / 0.3585, 1, (1 - 0.3457 - 0.3585) / 0.3585};
    const double y = (lab[0] + 16) / 116;
    const double x = lab[1] / 500 + y;
    const double z = y - lab[2] / 200;
    const auto cubed = [](double value) { return value * value * value; };
    const Triple relative = {cubed(x) > epsilon ? cubed(x) : (116 * x - 16) / kappa,
                             lab[0] > kappa * epsilon ? cubed(y) : lab[0] / kappa,
                             cubed(z) > epsilon ? cubed(z) : (116 * z - 16) / kappa};
    return xyzFromXyzD50 *
           Triple{relative[0] * white[0], relative[1] * white[1], relative[2] * white[2]};
}

Triple linearFromOklab(const Triple& oklab)
{
    const Triple cones = conesFromOklab * oklab;
    Triple cubes;
    for (std::size_t index = 0; index < 3; ++index)
        cubes[index] = cones[index] * cones[index] * cones[index];
    return linearSrgbFromCones * cubes;
}

// A number, or a percentage of what is whole.
std::optional<double> componentFrom(std::string_view text, double whole)
{
    if (equalsFolded(text, "none"))
        return 0;
    std::string_view rest;
    const std::optional<double> number = numberIn(text, &rest);
    if (!number || (!rest.empty() && rest != "%"))
        return std::nullopt;
    return rest == "%" ? *number / 100 * whole : *number;
}

// In degrees.
std::optional<double> angleFrom(std::string_view text)
{
    if (equalsFolded(text, "none"))
        return 0;
    std::string_view rest;
    const std::optional<double> number = numberIn(text, &rest);
    if (!number)
        return std::nullopt;
    if (equalsFolded(rest, "turn"))
        return *number * 360;
    if (equalsFolded(rest, "rad"))
        return *number / degree;
    if (equalsFolded(rest, "grad"))
        return *number * 0.9;
    return *number;
}

// lab() and oklab(), or lch() and oklch(), whose last two arguments are a length and an angle.
std::optional<Triple> labFrom(const std::vector<std::string_view>& arguments, bool isPolar,
                              double wholeLightness, double wholeChroma)
{
    const auto lightness = componentFrom(arguments[0], wholeLightness);
    const auto second = componentFrom(arguments[1], wholeChroma);
    const auto third = isPolar ? angleFrom(arguments[2]) : componentFrom(arguments[2], wholeChroma);
    if (!lightness || !second || !third)
        return std::nullopt;
    const double light = std::clamp(*lightness, 0.0, wholeLightness);
    if (!isPolar)
        return Triple{light, *second, *third};
    const double chroma = std::max(*second, 0.0);
    return Triple{light, chroma * std::cos(*third * degree), chroma * std::sin(*third * degree)};
}

std::optional<Triple> linearFromPredefined(std::string_view space, const Triple& components)
{
    const auto isCalled = [space](std::string_view name) { return equalsFolded(space, name); };
    if (isCalled("srgb"))
        return each(components, linearFromSrgb);
    if (isCalled("srgb-linear"))
        return components;
    if (isCalled("display-p3"))
        return linearSrgbFromXyz * (xyzFromDisplayP3 * each(components, linearFromSrgb));
    if (isCalled("a98-rgb"))
        return linearSrgbFromXyz * (xyzFromA98 * each(components, linearFromA98));
    if (isCalled("rec2020"))
        return linearSrgbFromXyz * (xyzFromRec2020 * each(components, linearFromRec2020));
    if (isCalled("prophoto-rgb"))
        return linearSrgbFromXyz *
               (xyzFromXyzD50 * (xyzD50FromProphoto * each(components, linearFromProphoto)));
    if (isCalled("xyz") || isCalled("xyz-d65"))
        return linearSrgbFromXyz * components;
    if (isCalled("xyz-d50"))
        return linearSrgbFromXyz * (xyzFromXyzD50 * components);
    return std::nullopt;
}

std::optional<Color> predefinedColor(const std::vector<std::string_view>& arguments, double alpha)
{
    Triple components;
    for (std::size_t index = 0; index < 3; ++index) {
        const auto component = componentFrom(arguments[index + 1], 1);
        if (!component)
            return std::nullopt;
        components[index] = *component;
    }
    const auto linear = linearFromPredefined(arguments[0], components);
    return linear ? std::optional(screenColor(*linear, alpha)) : std::nullopt;
}

} // namespace

std::optional<Color> colorFromSpace(std::string_view function,
                                    const std::vector<std::string_view>& arguments, double alpha)
{
    if (equalsFolded(function, "color"))
        return arguments.size() == 4 ? predefinedColor(arguments, alpha) : std::nullopt;
    if (arguments.size() != 3)
        return std::nullopt;
    const bool isLch = equalsFolded(function, "lch");
    if (isLch || equalsFolded(function, "lab")) {
        const auto lab = labFrom(arguments, isLch, 100, isLch ? 150 : 125);
        return lab ? std::optional(screenColor(linearSrgbFromXyz * xyzFromLab(*lab), alpha))
                   : std::nullopt;
    }
    const bool isOklch = equalsFolded(function, "oklch");
    if (isOklch || equalsFolded(function, "oklab")) {
        const auto oklab = labFrom(arguments, isOklch, 1, 0.4);
        return oklab ? std::optional(screenColor(linearFromOklab(*oklab), alpha)) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace platform::css
