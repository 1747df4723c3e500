// Creates each public class by its name.
var names = ["VorlaChaine", "VorlaNum\u00E9rique", "VorlaGraphique", "VorlaDate", "VorlaDivers", "VorlaFichier",
             "VorlaRegistre", "VorlaSystem", "VorlaLangue", "eEnum", "VorlaMultiMedia", "PaintEffects"];
var created = 0;
for (var i = 0; i < names.length; ++i) {
    try {
        var object = new ActiveXObject("Vorla6." + names[i]);
        ++created;
    } catch (error) {
        WScript.Echo("not created: " + i);
    }
}
WScript.Echo(created + " created");
