#include "sample/Names.h"

#include <algorithm>

namespace sample {

namespace {

constexpr std::string_view women[] = {
    "María",  "Carmen",     "Ana",      "Isabel",  "Laura", "Cristina", "Marta",   "Lucía",      "Dolores",
    "Elena",  "Pilar",      "Raquel",   "Sara",    "Rosa",  "Mercedes", "Beatriz", "Nuria",      "Silvia",
    "Julia",  "Paula",      "Patricia", "Irene",   "Alba",  "Rocío",    "Mónica",  "Teresa",     "Inmaculada",
    "Begoña", "Montserrat", "Ángela",   "Yolanda", "Sonia", "Sofía",    "Inés",    "Aitana",     "Leire",
    "Noelia", "Verónica",   "Natalia",  "Esther",  "Eva",   "Gloria",   "Amparo",  "Concepción",
};

constexpr std::string_view men[] = {
    "Antonio", "José",      "Manuel",  "Francisco", "Juan",    "David",   "Javier",   "Daniel", "Carlos",
    "Jesús",   "Alejandro", "Miguel",  "Rafael",    "Pedro",   "Pablo",   "Ángel",    "Sergio", "Fernando",
    "Jorge",   "Luis",      "Alberto", "Álvaro",    "Adrián",  "Diego",   "Raúl",     "Iván",   "Rubén",
    "Enrique", "Ramón",     "Óscar",   "Andrés",    "Vicente", "Joaquín", "Santiago", "Víctor", "Eduardo",
    "Roberto", "Jaime",     "Iker",    "Jordi",     "Xavier",  "Iñaki",   "Gonzalo",  "Emilio",
};

constexpr std::string_view surnames[] = {
    "García",   "Rodríguez", "González",   "Fernández", "López",   "Martínez",  "Sánchez",   "Pérez",
    "Gómez",    "Martín",    "Jiménez",    "Hernández", "Ruiz",    "Díaz",      "Moreno",    "Muñoz",
    "Álvarez",  "Romero",    "Gutiérrez",  "Alonso",    "Navarro", "Torres",    "Domínguez", "Ramos",
    "Vázquez",  "Ramírez",   "Gil",        "Serrano",   "Morales", "Molina",    "Blanco",    "Suárez",
    "Castro",   "Ortega",    "Delgado",    "Ortiz",     "Marín",   "Rubio",     "Núñez",     "Medina",
    "Sanz",     "Castillo",  "Iglesias",   "Cortés",    "Garrido", "Santos",    "Guerrero",  "Lozano",
    "Cano",     "Cruz",      "Méndez",     "Flores",    "Prieto",  "Herrera",   "Peña",      "León",
    "Márquez",  "Cabrera",   "Gallego",    "Calvo",     "Vidal",   "Campos",    "Reyes",     "Vega",
    "Fuentes",  "Carrasco",  "Aguilar",    "Caballero", "Nieto",   "Santana",   "Pascual",   "Herrero",
    "Montero",  "Hidalgo",   "Giménez",    "Ibáñez",    "Ferrer",  "Durán",     "Vicente",   "Benítez",
    "Mora",     "Santiago",  "Arias",      "Vargas",    "Carmona", "Crespo",    "Román",     "Pastor",
    "Soto",     "Sáez",      "Velasco",    "Soler",     "Moya",    "Esteban",   "Parra",     "Bravo",
    "Gallardo", "Rojas",     "Etxeberria", "Zabala",    "Puig",    "Ferrándiz", "Casals",    "Bustamante",
    "Quiroga",  "Oña",       "Güell",      "Argüelles",
};

constexpr std::string_view trades[] = {
    "Suministros", "Talleres",     "Ferretería", "Construcciones", "Instalaciones",  "Distribuciones",
    "Comercial",   "Electricidad", "Fontanería", "Carpintería",    "Papelería",      "Transportes",
    "Restaurante", "Cafetería",    "Hostal",     "Panadería",      "Clínica Dental", "Farmacia",
    "Academia",    "Gestoría",     "Asesoría",   "Imprenta",       "Viveros",        "Bodegas",
    "Conservas",   "Almacenes",    "Maquinaria", "Recambios",      "Autoescuela",    "Óptica",
    "Peluquería",  "Cerámicas",    "Muebles",    "Pinturas",       "Limpiezas",      "Reformas",
};

constexpr std::string_view companySuffixes[] = {
    "", "", "", " e Hijos", " Hermanos", " y Asociados", " y Cía.", " del Sur", " del Norte", " 2000",
};

struct LegalForm {
    const char* text;
    char letter;
};
constexpr LegalForm legalForms[] = {
    {", S.L.", 'B'}, {", S.L.", 'B'}, {", S.L.", 'B'}, {", S.L.U.", 'B'},
    {", S.A.", 'A'}, {", S.A.", 'A'}, {", C.B.", 'E'},
};

constexpr std::string_view streets[] = {
    "Calle Mayor",
    "Calle Real",
    "Calle del Carmen",
    "Calle de la Iglesia",
    "Calle San José",
    "Calle Cervantes",
    "Calle Goya",
    "Calle Velázquez",
    "Calle Nueva",
    "Calle del Pilar",
    "Calle Miguel Hernández",
    "Calle Rosalía de Castro",
    "Calle Severo Ochoa",
    "Calle Clara Campoamor",
    "Calle Concepción Arenal",
    "Calle Antonio Machado",
    "Calle Santa Teresa",
    "Calle Ramón y Cajal",
    "Calle Lepanto",
    "Calle del Agua",
    "Avenida de la Constitución",
    "Avenida de Andalucía",
    "Avenida de Europa",
    "Avenida del Mediterráneo",
    "Avenida Blasco Ibáñez",
    "Avenida de la Libertad",
    "Plaza de España",
    "Plaza Mayor",
    "Plaza del Ayuntamiento",
    "Paseo de la Estación",
    "Paseo Marítimo",
    "Ronda Norte",
    "Camino Viejo",
    "Carretera de Valencia",
    "Polígono Industrial Las Eras, nave",
    "Polígono Industrial El Ventorro, parcela",
    "Travesía de los Olmos",
    "Glorieta de los Alféreces",
};

constexpr std::string_view mailHosts[] = {
    "correo.example", "buzon.example", "empresa.example", "oficina.example", "taller.example",
};

constexpr ArticleKind kinds[] = {
    {"Ferretería", "FER", "Tornillo zincado",
     "3 x 20 mm (200 u.)|4 x 30 mm (200 u.)|4 x 40 mm (100 u.)|5 x 50 mm (100 u.)|6 x 60 mm (50 u.)|8 x 80 "
     "mm (25 u.)",
     450, 2490, 21, 900},
    {"Ferretería", "FER", "Taco de nailon", "6 mm (100 u.)|8 mm (100 u.)|10 mm (50 u.)|12 mm (25 u.)", 290,
     1590, 21, 350},
    {"Ferretería", "FER", "Bisagra de acero", "50 mm|70 mm|80 mm inoxidable|100 mm|de cazoleta 35 mm", 120,
     890, 21, 180},
    {"Ferretería", "FER", "Candado de latón", "20 mm|30 mm|40 mm|50 mm arco largo|60 mm", 590, 3490, 21, 420},
    {"Ferretería", "FER", "Cerradura de embutir", "40 mm cromo|50 mm latón|60 mm|con 5 llaves", 1290, 6990,
     21, 1100},
    {"Herramienta", "HER", "Martillo de peña", "300 g|500 g|mango bimaterial|mango de fresno", 790, 2990, 21,
     650},
    {"Herramienta", "HER", "Alicates universales", "160 mm|180 mm|200 mm|aislados 1000 V", 890, 3490, 21,
     310},
    {"Herramienta", "HER", "Taladro percutor", "500 W|750 W|900 W|a batería 18 V|con maletín", 4990, 24900,
     21, 2100},
    {"Herramienta", "HER", "Sierra de calar", "450 W|600 W|800 W pendular|a batería 12 V", 3990, 18900, 21,
     2300},
    {"Herramienta", "HER", "Juego de llaves Allen", "9 piezas|13 piezas|con mango en T|con punta de bola",
     690, 2790, 21, 380},
    {"Herramienta", "HER", "Flexómetro", "3 m|5 m|8 m|5 m magnético", 390, 1890, 21, 260},
    {"Electricidad", "ELE", "Lámpara led", "5 W cálida|9 W neutra|12 W fría|vela 4 W|GU10 7 W", 190, 1290, 21,
     90},
    {"Electricidad", "ELE", "Interruptor conmutado", "blanco|aluminio|estanco IP55|con piloto", 340, 1790, 21,
     85},
    {"Electricidad", "ELE", "Manguera eléctrica", "2 x 1 mm² (25 m)|3 x 1,5 mm² (50 m)|3 x 2,5 mm² (100 m)",
     1490, 9900, 21, 5200},
    {"Electricidad", "ELE", "Regleta con protección", "3 tomas|4 tomas|6 tomas|6 tomas con USB", 890, 3990,
     21, 480},
    {"Fontanería", "FON", "Grifo monomando", "lavabo cromo|cocina caño alto|ducha|negro mate", 2490, 14900,
     21, 1450},
    {"Fontanería", "FON", "Latiguillo flexible", "1/2\" 30 cm|1/2\" 50 cm|3/8\" 35 cm|3/4\" 40 cm", 290, 990,
     21, 120},
    {"Fontanería", "FON", "Válvula de escuadra", "1/2\" a 3/8\"|1/2\" a 1/2\"|con filtro", 450, 1690, 21,
     230},
    {"Pintura", "PIN", "Pintura plástica mate", "blanco 4 l|blanco 15 l|crema 4 l|gris perla 4 l", 1290, 8990,
     21, 15400},
    {"Pintura", "PIN", "Esmalte al agua",
     "azul añil 0,75 l|rojo teja 0,75 l|verde carruaje 0,75 l|blanco 4 l", 990, 4590, 21, 1200},
    {"Pintura", "PIN", "Rodillo antigota", "15 cm|18 cm|22 cm|22 cm con cubeta", 390, 1690, 21, 210},
    {"Jardín", "JAR", "Manguera de riego", "15 m|25 m|50 m|25 m con pistola", 1190, 5990, 21, 3400},
    {"Jardín", "JAR", "Tijera de podar", "una mano|dos manos|de yunque|telescópica", 790, 3890, 21, 290},
    {"Jardín", "JAR", "Semillas de césped", "1 kg|5 kg|sombra 1 kg|deportivo 5 kg", 350, 2490, 10, 1000},
    {"Jardín", "JAR", "Sustrato universal", "20 l|50 l|70 l|para cactus 10 l", 290, 1290, 10, 20000},
    {"Oficina", "OFI", "Papel de impresora",
     "A4 80 g (500 h.)|A4 90 g (500 h.)|A3 80 g (500 h.)|reciclado A4", 390, 2690, 21, 2500},
    {"Oficina", "OFI", "Archivador de palanca", "A4 azul|A4 negro|folio lomo ancho|folio jaspeado", 190, 590,
     21, 520},
    {"Oficina", "OFI", "Bolígrafo de gel", "azul|negro|rojo|verde|caja de 12 azul", 80, 390, 21, 12},
    {"Oficina", "OFI", "Cuaderno de espiral", "A4 cuadrícula|A4 rayado|A5 cuadrícula|A5 liso", 150, 690, 21,
     310},
    {"Limpieza", "LIM", "Detergente industrial", "5 l|10 l|20 l|concentrado 5 l", 690, 3990, 21, 5100},
    {"Limpieza", "LIM", "Bayeta de microfibra", "azul|amarilla|paquete de 5|paquete de 10", 120, 790, 21, 60},
    {"Limpieza", "LIM", "Guantes de nitrilo",
     "talla S (100 u.)|talla M (100 u.)|talla L (100 u.)|talla XL (100 u.)", 490, 1490, 21, 240},
    {"Alimentación", "ALI", "Aceite de oliva virgen extra", "1 l|2 l|5 l|caja de 6 x 1 l", 690, 5490, 10,
     4600},
    {"Alimentación", "ALI", "Café molido natural", "250 g|500 g|1 kg|mezcla 500 g", 290, 1290, 10, 500},
    {"Alimentación", "ALI", "Agua mineral", "0,5 l|1,5 l|5 l|pack de 6 x 1,5 l", 40, 390, 10, 1500},
    {"Alimentación", "ALI", "Harina de trigo", "1 kg|5 kg|fuerza 1 kg|integral 1 kg", 80, 990, 4, 1000},
    {"Alimentación", "ALI", "Leche entera", "1 l|1,5 l|caja de 6 x 1 l", 90, 790, 4, 1030},
    {"Libros", "LIB", "Manual de instalaciones", "eléctricas|térmicas|de gas|de agua", 1490, 5990, 4, 850},
    {"Libros", "LIB", "Cuaderno de tarifas", "edición 2022|edición 2023|edición 2024", 590, 1990, 4, 320},
    {"Seguridad", "SEG", "Casco de obra", "blanco|amarillo|azul|con barbuquejo", 690, 2990, 21, 390},
    {"Seguridad", "SEG", "Gafas de protección", "transparentes|ahumadas|panorámicas", 290, 1590, 21, 70},
    {"Seguridad", "SEG", "Extintor de polvo ABC", "1 kg|3 kg|6 kg|9 kg", 2490, 8990, 21, 9200},
};

constexpr std::string_view brandNames[] = {
    "Altair", "Bergantín", "Cierzo", "Dunas", "Encina", "Faro", "Garbí", "Hontanar", "Izarra", "Jara",
};

/// The plain letters of those that UTF-8 writes as 0xC3 and a second byte, after folding to small ones.
constexpr struct {
    unsigned char second;
    char plain;
} accented[] = {
    {0xA1, 'a'}, {0xA0, 'a'}, {0xA9, 'e'}, {0xA8, 'e'}, {0xAD, 'i'}, {0xB3, 'o'},
    {0xB2, 'o'}, {0xBA, 'u'}, {0xBC, 'u'}, {0xB1, 'n'}, {0xA7, 'c'},
};

char withoutAccent(unsigned char second) {
    constexpr unsigned char smallLetterBit = 0x20;
    for (const auto& letter : accented)
        if (letter.second == (second | smallLetterBit)) return letter.plain;
    return 0;
}

} // namespace

Person makePerson(Random& random) {
    Person person;
    person.firstName = random.chance(50) ? random.oneOf(women) : random.oneOf(men);
    if (random.chance(12) && person.firstName == "José") person.firstName = "José Luis";
    if (random.chance(30) && person.firstName == "María") person.firstName = "María José";
    // Draw by draw: the order in which a sum's sides are evaluated is the compiler's own.
    person.surnames = random.oneOf(surnames);
    person.surnames += " ";
    person.surnames += random.oneOf(surnames);
    return person;
}

std::string makeCompany(Random& random, char& form) {
    const LegalForm& legal = random.oneOf(legalForms);
    form = legal.letter;
    std::string name(random.oneOf(trades));
    name += " ";
    name += random.oneOf(surnames);
    name += random.oneOf(companySuffixes);
    return name + legal.text;
}

std::string makeStreet(Random& random) {
    constexpr int lastHouse = 180;
    constexpr int lastFloor = 9;
    std::string street(random.oneOf(streets));
    const bool estate = street.starts_with("Polígono");
    if (!estate && random.chance(3)) return street + ", s/n";
    street += (estate ? " " : ", ") + std::to_string(random.between(1, lastHouse));
    if (!estate && random.chance(60)) {
        constexpr std::string_view doors[] = {"A", "B", "C", "D", "izda.", "dcha."};
        street += ", " + std::to_string(random.between(1, lastFloor)) + ".º ";
        street += random.oneOf(doors);
    }
    return street;
}

std::string plainWord(std::string_view name) {
    std::string plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto c = static_cast<unsigned char>(name[i]);
        char letter = 0;
        if (c == 0xC3 && i + 1 < name.size())
            letter = withoutAccent(static_cast<unsigned char>(name[++i]));
        else if (c >= 'A' && c <= 'Z')
            letter = static_cast<char>(c - 'A' + 'a');
        else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
            letter = static_cast<char>(c);
        else if (c == ' ' && !plain.empty() && plain.back() != '.')
            letter = '.';
        if (letter) plain += letter;
    }
    while (!plain.empty() && plain.back() == '.')
        plain.pop_back();
    return plain;
}

std::string makeMail(Random& random, std::string_view name) {
    return plainWord(name) + "@" + std::string(random.oneOf(mailHosts));
}

std::span<const ArticleKind> articleKinds() {
    return kinds;
}

std::string_view makeVariant(Random& random, const ArticleKind& kind) {
    const std::string_view all = kind.variants;
    std::int64_t chosen = random.between(0, std::count(all.begin(), all.end(), '|'));
    std::size_t start = 0;
    for (; chosen > 0; --chosen)
        start = all.find('|', start) + 1;
    return all.substr(start, all.find('|', start) - start);
}

std::span<const std::string_view> brands() {
    return brandNames;
}

} // namespace sample
