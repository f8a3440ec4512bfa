#include "tools/zelvor_demo/ombrel_file.h"

#include "res/string_table.h"

#include <array>
#include <string>

namespace zelvor::demo {
namespace {

// The profile section and entry names (MainSection, Random, Repeat, Mute,
// StorageCard, FlashDisk, FreeSapceHigh, FreeSpaceLow) are not shown to the
// user and are never translated, so they have no line here. The program's
// name stays as it is in every language.
constexpr std::array kTranslations{
    Translation{128, u"Zelvor", u"Zelvor", u"Zelvor"},
    Translation{129, u"Musikplayer", u"Lecteur de musique", u"Reproductor de música"},
    Translation{130, u"Aktueller Titel", u"En cours de lecture", u"Reproduciendo"},
    Translation{131, u"Dateiname", u"Nom du fichier", u"Nombre de archivo"},
    Translation{132, u"Meine Wiedergabelisten", u"Mes listes de lecture",
                u"Mis listas de reproducción"},
    Translation{133, u"Möchten Sie alle Dateien aus der Wiedergabeliste löschen?",
                u"Voulez-vous supprimer tous les fichiers de la liste de lecture ?",
                u"¿Desea eliminar todos los archivos de la lista de reproducción?"},
    Translation{134, u"Unbekannt", u"Inconnu", u"Desconocido"},
    Translation{135, u"Alle Musik", u"Toute la musique", u"Toda la música"},
    Translation{136, u"Interpreten", u"Artistes", u"Artistas"},
    Translation{137, u"Alben", u"Albums", u"Álbumes"},
    Translation{138, u"Genres", u"Genres", u"Géneros"},
    Translation{139, u"Meine Favoriten", u"Mes favoris", u"Mis favoritos"},
    Translation{140, u"Umbenennen fehlgeschlagen!", u"Échec du renommage !",
                u"¡No se pudo cambiar el nombre!"},
    Translation{141, u"Eine Wiedergabeliste namens '%s' ist bereits vorhanden.",
                u"Une liste de lecture nommée « %s » existe déjà.",
                u"Ya existe una lista de reproducción llamada '%s'."},
    Translation{142, u"Umbenennen", u"Renommer", u"Cambiar nombre"},
    Translation{143, u"Löschen", u"Supprimer", u"Eliminar"},
    Translation{144, u"Zu neuer Wiedergabeliste hinzufügen...", u"Ajouter à une nouvelle liste...",
                u"Añadir a una lista nueva..."},
    Translation{145, u"Bibliothek aktualisieren", u"Mettre à jour la bibliothèque",
                u"Actualizar biblioteca"},
    Translation{149, u"Neue Wiedergabeliste", u"Nouvelle liste de lecture",
                u"Nueva lista de reproducción"},
    Translation{150, u"Zu '%s' hinzufügen", u"Ajouter à « %s »", u"Añadir a '%s'"},
    Translation{151, u"Dateien werden gesucht...", u"Recherche de fichiers...",
                u"Buscando archivos..."},
    Translation{152, u"Dateien werden hinzugefügt...", u"Ajout des fichiers...",
                u"Añadiendo archivos..."},
    Translation{153, u"%d Datei(en) gefunden", u"%d fichier(s) trouvé(s)",
                u"%d archivo(s) encontrado(s)"},
    Translation{154, u"%d Datei(en) hinzugefügt", u"%d fichier(s) ajouté(s)",
                u"%d archivo(s) añadido(s)"},
    Translation{155, u"Die Bibliothek wurde erfolgreich aktualisiert!",
                u"La bibliothèque a été mise à jour !",
                u"¡La biblioteca se ha actualizado correctamente!"},
    Translation{156, u"Es wurden keine Musikdateien gefunden.",
                u"Aucun fichier de musique n'a été trouvé.",
                u"No se ha encontrado ningún archivo de música."},
    // The English text holds a line feed; inside a line it is an ordinary
    // character of the field, only CR ends a line.
    Translation{157, u"'%s'\nMöchten Sie diese Wiedergabeliste löschen?",
                u"« %s »\nVoulez-vous supprimer cette liste de lecture ?",
                u"'%s'\n¿Desea eliminar esta lista de reproducción?"},
    Translation{159, u"Gesamt:  %d  Titel", u"Total :  %d  morceaux", u"Total:  %d  canciones"},
    Translation{164, u"Alle", u"Tous", u"Todos"},
};

bool AppendField(std::u16string& line, std::u16string_view field) {
    if (field.size() > kMaxOmbrelField || field.find_first_of(u"\t\r") != std::u16string_view::npos)
        return false;
    line += field;
    return true;
}

} // namespace

std::span<const Translation> Translations() {
    return kTranslations;
}

std::optional<Bytes> BuildOmbrelText() {
    std::u16string text(1, u'\xFEFF');
    for (const Translation& t : kTranslations) {
        // The key comes from the string table itself so that it can never
        // drift from the text the program looks up.
        std::optional<std::u16string_view> english = FindBuiltInText(t.id);
        if (!english)
            return std::nullopt;
        std::u16string line;
        bool first = true;
        for (std::u16string_view field : {*english, t.german, t.french, t.spanish}) {
            if (!first)
                line += u'\t';
            first = false;
            if (!AppendField(line, field))
                return std::nullopt;
        }
        text += line;
        text += u"\r\n";
    }
    Bytes bytes;
    bytes.reserve(text.size() * 2);
    for (char16_t unit : text) {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>(unit >> 8));
    }
    return bytes;
}

} // namespace zelvor::demo
