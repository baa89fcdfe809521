#include <tools/schedule/list_wording.h>

namespace quorvan::tool {

constinit const ListWording kFrenchList = {
    .language = "fr",
    .name = "français",
    .decimalMark = ',',
    .shapes = {"barre droite", "barre en L", "barre en U", "épingle", "barre vue en bout",
               "barre polygonale", "cadre rectangulaire", "cadre circulaire", "étrier"},
    .reasons = {"la barre répétée n'est pas dans le fichier", "ne contient aucune barre",
                "vue en bout : sa longueur n'est pas dans le fichier",
                "sa largeur n'est pas dans le fichier : la longueur est un minimum",
                "{0} est absent ou n'est pas un nombre", "aucune longueur exploitable",
                "aucun diamètre exploitable", "les panneaux ont leur propre liste"},
    .titles = {.list = "Nomenclature de {0}",
               .ofDrawing = "plan {0}",
               .bars = "Barres",
               .sums = "Par diamètre et nuance",
               .drawings = "Par plan",
               .meshes = "Treillis soudés",
               .leftOut = "Hors de ces totaux",
               .explanations = "Origine des nombres",
               .sketches = "Façonnages",
               .conventions = "Conventions"},
    .columns = {.drawing = "plan",
                .file = "fichier",
                .mark = "repère",
                .code = "code",
                .shape = "façonnage",
                .grade = "nuance",
                .adherence = "adhérence",
                .diameter = "diamètre",
                .roller = "mandrin",
                .number = "nombre",
                .length = "longueur",
                .longest = "longueur jusqu'à",
                .total = "total",
                .totalLength = "longueur totale",
                .mass = "masse",
                .dimensions = "cotes",
                .elements = "éléments",
                .remarks = "remarques",
                .explanation = "origine",
                .reference = "repère",
                .type = "type",
                .pieces = "panneaux",
                .width = "selon X",
                .height = "selon Y",
                .area = "aire",
                .totalArea = "aire totale",
                .className = "classe",
                .index = "indice",
                .reason = "raison"},
    .conventions =
        {.axis =
             "Longueur : sur l'axe tel que dessiné, crochets compris, sans déduction pour les "
             "coudes. Barre en U : la troisième branche est égale à la première. Cadre "
             "rectangulaire : les quatre côtés. Cadre circulaire : le cercle et son recouvrement. "
             "Étrier : deux fois son grand axe. Cadres et étriers : leur crochet aux deux bouts.",
         .iso =
             "Selon ISO 3766. Longueur : longueur développée, sur l'axe avec ses coudes. Cotes : "
             "hors tout, jusqu'au point extrême d'un coude au-delà de l'angle droit. Barre en U : "
             "la troisième branche est égale à la première. Étrier : pas plus large que ses "
             "coudes. Cadres et étriers : leur crochet aux deux bouts.",
         .british =
             "Selon BS 8666:2020. Longueur : par la formule du code de forme ou, si un coude de "
             "plus de 45 degrés le demande, sur l'axe. Cotes : hors tout ; celles entre "
             "parenthèses sont libres. Étrier : pas plus large que ses coudes.",
         .sketchCode = "Code 99 : une forme sans code, avec ses branches dans l'ordre.",
         .noDeduction = "Longueur : la somme des cotes extérieures.",
         .deduction = "Longueur : la somme des cotes extérieures moins {0} par coude.",
         .rollers = "Mandrins : 4 diamètres jusqu'à 16 mm, 7 au-delà.",
         .givenRoller = "Mandrins : {0}.",
         .hooksFromCorner =
             "Crochets : leur longueur compte depuis l'angle où ils sont pliés ; au-delà de "
             "l'angle droit, depuis la droite que le coude touche au bout de la barre.",
         .hooksStraight = "Crochets : leur longueur est la partie droite après le coude.",
         .ringAxis = "Cadres circulaires : le rayon est celui de l'axe.",
         .ringInner = "Cadres circulaires : le rayon est le rayon intérieur.",
         .roundedNearest = "Arrondis : longueurs à {0} mm, cotes à {1} mm.",
         .roundedUp = "Arrondis : longueurs à {0} mm par excès, cotes à {1} mm.",
         .degrees = "Angles : en degrés.",
         .radians = "Angles : en radians.",
         .number =
             "Nombre : chaque élément compte, même caché ; celui que des répartitions répètent "
             "représente leurs barres. Les barres vues en bout ne comptent que si le repère n'a "
             "pas d'autre élément de leur diamètre et de leur nuance ; leur longueur n'est pas "
             "dans le fichier.",
         .twinsOnce =
             "Les répartitions d'un repère de même nombre et de mêmes pas en plusieurs vues "
             "comptent une fois.",
         .units =
             "Unités : diamètre en mm, longueur en {0}, longueur totale en m, masse en kg à {1} "
             "kg/m3."},
    .remarks = {.twins =
                    "{0} semblent être les mêmes barres en plusieurs vues : toutes sont comptées",
                .sameBars = "{0} montre les barres de {1} dans une autre vue",
                .lowerBound = "au moins : sa largeur n'est pas dans le fichier",
                .tooShort = "une branche est trop courte pour ses coudes",
                .endOn = "en bout {0}",
                .hidden = "{0} caché(s)"},
    .explanations = {.drawn = "{0} dessinée(s)",
                     .repeated = "dont {0} répétée(s) par {1}",
                     .share = "{0} ({1} barres)",
                     .result = "{0} : {1}"},
    .range = "{0} à {1}",
    .noBars = "Aucune barre.",
    .totalMass = "Masse totale : {0} kg",
    .page = "Page {0} sur {1}"};

}  // namespace quorvan::tool
