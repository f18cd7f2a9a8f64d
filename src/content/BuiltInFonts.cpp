// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include <array>

namespace zelvo::content {
namespace {

// The sources of the files are in resources/fonts.tsv, which scripts/fetch-fonts.sh reads.
// clang-format off
constexpr auto kBuiltInFonts = std::to_array<BuiltInFont>({
    {"Abel-Regular",           "Abel-Regular.ttf"              },
    {"Avenir-Medium",          "NunitoSans-Medium.ttf"         },
    {"HelveticaNeue-Light",    "InterTight-Light.ttf"          },
    {"HelveticaNeue-Bold",     "InterTight-Bold.ttf"           },
    {"Audiowide-Regular",      "Audiowide-Regular.ttf"         },
    {"Baskerville-SemiBold",   "Baskervville-SemiBold.ttf"     },
    {"Georgia",                "Gelasio-Regular.ttf"           },
    {"FugazOne-Regular",       "FugazOne-Regular.ttf"          },
    {"Aldrich",                "Aldrich-Regular.ttf"           },
    {"AmaticSC-Bold",          "AmaticSC-Bold.ttf"             },
    {"Bangers-Regular",        "Bangers-Regular.ttf"           },
    {"BlackOpsOne-Regular",    "BlackOpsOne-Regular.ttf"       },
    {"BowlbyOneSC-Regular",    "BowlbyOneSC-Regular.ttf"       },
    {"Bungee-Regular",         "Bungee-Regular.ttf"            },
    {"CevicheOne-Regular",     "CevicheOne-Regular.ttf"        },
    {"ContrailOne-Regular",    "ContrailOne-Regular.ttf"       },
    {"DaysOne-Regular",        "DaysOne-Regular.ttf"           },
    {"Dosis-Medium",           "Dosis-Medium.ttf"              },
    {"Exo-Medium",             "Exo-Medium.ttf"                },
    {"FasterOne-Regular",      "FasterOne-Regular.ttf"         },
    {"Flavors-Regular",        "Flavors-Regular.ttf"           },
    {"FredokaOne-Regular",     "FredokaOne-Regular.ttf"        },
    {"Gang of three",          "Shojumaru-Regular.ttf"         },
    {"Geo-Oblique",            "Geo-Oblique.ttf"               },
    {"Geo-Regular",            "Geo-Regular.ttf"               },
    {"Georgia-Bold",           "Gelasio-Bold.ttf"              },
    {"GRUPO3",                 "RussoOne-Regular.ttf"          },
    {"KronaOne-Regular",       "KronaOne-Regular.ttf"          },
    {"LeagueGothic-Regular",   "LeagueGothic-Regular.ttf"      },
    {"LondrinaShadow-Regular", "LondrinaShadow-Regular.ttf"    },
    {"LuckiestGuy-Regular",    "LuckiestGuy-Regular.ttf"       },
    {"Michroma",               "Michroma-Regular.ttf"          },
    {"Monoton-Regular",        "Monoton-Regular.ttf"           },
    {"Nunito-Regular",         "Nunito-Regular.ttf"            },
    {"Orbitron-Bold",          "Orbitron-Bold.ttf"             },
    {"Orbitron-Regular",       "Orbitron-Regular.ttf"          },
    {"OSP-DIN",                "OSP-DIN.ttf"                   },
    {"Pathway Gothic One",     "PathwayGothicOne-Regular.ttf"  },
    {"Philosopher-Bold",       "Philosopher-Bold.ttf"          },
    {"PressStart2P-Regular",   "PressStart2P-Regular.ttf"      },
    {"Quicksand-Bold",         "Quicksand-Bold.ttf"            },
    {"Quicksand-Regular",      "Quicksand-Regular.ttf"         },
    {"RubikMonoOne-Regular",   "RubikMonoOne-Regular.ttf"      },
    {"ShareTech-Regular",      "ShareTech-Regular.ttf"         },
    {"Shrikhand-Regular",      "Shrikhand-Regular.ttf"         },
    {"SigmarOne-Regular",      "SigmarOne-Regular.ttf"         },
    {"SinkinSans-700Bold",     "TypoPRO-SinkinSans-700Bold.ttf"},
    {"Slackey-Regular",        "Slackey-Regular.ttf"           },
    {"SonsieOne-Regular",      "SonsieOne-Regular.ttf"         },
    {"SquadaOne-Regular",      "SquadaOne-Regular.ttf"         },
    {"Syncopate-Bold",         "Syncopate-Bold.ttf"            },
    {"Syncopate-Regular",      "Syncopate-Regular.ttf"         },
    {"TitanOne",               "TitanOne.ttf"                  },
    {"UnicaOne-Regular",       "UnicaOne-Regular.ttf"          },
});
// clang-format on

static_assert(kBuiltInFonts.size() == 54);

} // namespace

std::span<const BuiltInFont> FontManager::builtInFonts() {
    return kBuiltInFonts;
}

} // namespace zelvo::content
