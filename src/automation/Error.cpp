#include "automation/Error.h"

#include <algorithm>
#include <iterator>

namespace automation {

namespace {

struct Description {
    std::int32_t number;
    const char16_t* text;
};

// In ascending order of the numbers.
constexpr Description descriptions[] = {
    {3, u"Return sin GoSub"},
    {5, u"Llamada a procedimiento o argumento no válidos"},
    {6, u"Desbordamiento"},
    {7, u"Memoria insuficiente"},
    {9, u"Subíndice fuera del intervalo"},
    {10, u"La matriz está fija o bloqueada temporalmente"},
    {11, u"División por cero"},
    {13, u"El tipo no coincide"},
    {14, u"No hay espacio para la cadena"},
    {16, u"Expresión demasiado compleja"},
    {17, u"No se puede realizar la operación solicitada"},
    {18, u"Interrupción del usuario"},
    {20, u"Resume sin error"},
    {28, u"No hay espacio en la pila"},
    {35, u"No se ha definido Sub, Function o Property"},
    {47, u"Demasiados clientes de la aplicación DLL"},
    {48, u"Error al cargar la DLL"},
    {49, u"La convención de llamada a la DLL es incorrecta"},
    {51, u"Error interno"},
    {52, u"Nombre o número de archivo incorrecto"},
    {53, u"No se ha encontrado el archivo"},
    {54, u"Modo de archivo incorrecto"},
    {55, u"El archivo ya está abierto"},
    {57, u"Error de E/S de dispositivo"},
    {58, u"El archivo ya existe"},
    {59, u"Longitud de registro incorrecta"},
    {61, u"Disco lleno"},
    {62, u"La entrada de datos rebasa el final del archivo"},
    {63, u"Número de registro incorrecto"},
    {67, u"Demasiados archivos"},
    {68, u"Dispositivo no disponible"},
    {70, u"Permiso denegado"},
    {71, u"El disco no está listo"},
    {74, u"No se puede cambiar el nombre con una unidad de disco diferente"},
    {75, u"Error de acceso a la ruta o al archivo"},
    {76, u"No se ha encontrado la ruta de acceso"},
    {91, u"Variable de objeto o bloque With no establecido"},
    {92, u"Bucle For no inicializado"},
    {93, u"La cadena de modelo no es válida"},
    {94, u"Uso no válido de Null"},
    {97,
     u"No se puede llamar a un procedimiento amigo en un objeto que no sea una instancia de la clase que lo "
     u"define"},
    {98, u"Una llamada a una propiedad o método no puede incluir una referencia a un objeto privado"},
    {321, u"Formato de archivo no válido"},
    {322, u"No se puede crear el archivo temporal necesario"},
    {325, u"Formato no válido en el archivo de recursos"},
    {326, u"No se ha encontrado el recurso con el identificador especificado"},
    {327, u"No se ha encontrado el valor de datos indicado"},
    {328, u"Parámetro no válido; no se puede escribir la matriz"},
    {340, u"El elemento de la matriz de controles no existe"},
    {341, u"Índice de matriz de controles no válido"},
    {343, u"El objeto no es una matriz"},
    {344, u"Debe especificar el índice de la matriz de objetos"},
    {360, u"El objeto ya está cargado"},
    {361, u"No se puede cargar o descargar este objeto"},
    {365, u"No se puede descargar dentro de este contexto"},
    {380, u"El valor de la propiedad no es válido"},
    {381, u"El índice de la matriz de propiedades no es válido"},
    {382, u"Set no se admite en tiempo de ejecución"},
    {383, u"Set no se admite (propiedad de sólo lectura)"},
    {385, u"Se necesita el índice de la matriz de propiedades"},
    {387, u"Set no permitido"},
    {393, u"Get no se admite en tiempo de ejecución"},
    {394, u"Get no se admite (propiedad de sólo escritura)"},
    {400, u"El formulario ya se está mostrando; no se puede mostrar de forma modal"},
    {401, u"No se puede mostrar un formulario no modal mientras se muestra un formulario modal"},
    {402, u"Debe cerrar u ocultar primero el formulario modal superior"},
    {419, u"Permiso denegado para usar el objeto"},
    {422, u"No se ha encontrado la propiedad"},
    {423, u"No se ha encontrado la propiedad o el método"},
    {424, u"Se requiere un objeto"},
    {425, u"Uso de objeto no válido"},
    {429, u"El componente ActiveX no puede crear el objeto"},
    {430, u"La clase no admite Automatización o no admite la interfaz esperada"},
    {432, u"No se ha encontrado el nombre de archivo o de clase durante la operación de Automatización"},
    {438, u"El objeto no admite esta propiedad o método"},
    {440, u"Error de Automatización"},
    {442, u"Se ha perdido la conexión a la biblioteca de tipos o a la biblioteca de objetos para el proceso "
          u"remoto"},
    {443, u"El objeto de Automatización no tiene un valor predeterminado"},
    {445, u"El objeto no admite esta acción"},
    {446, u"El objeto no admite argumentos con nombre"},
    {447, u"El objeto no admite la configuración regional actual"},
    {448, u"Argumento con nombre no encontrado"},
    {449, u"Argumento no opcional"},
    {450, u"Número de argumentos incorrecto o asignación de propiedad no válida"},
    {451, u"El procedimiento Property Let no está definido y el procedimiento Property Get no ha devuelto un "
          u"objeto"},
    {452, u"Ordinal no válido"},
    {453, u"No se ha encontrado la función DLL especificada"},
    {454, u"No se ha encontrado el recurso de código"},
    {455, u"Error de bloqueo del recurso de código"},
    {457, u"La clave ya está asociada a un elemento de esta colección"},
    {458, u"La variable utiliza un tipo de Automatización no admitido"},
    {459, u"El objeto o la clase no admite el conjunto de eventos"},
    {460, u"Formato de Portapapeles no válido"},
    {461, u"No se ha encontrado el método o el dato miembro"},
    {462, u"El equipo servidor remoto no existe o no está disponible"},
    {463, u"La clase no está registrada en el equipo local"},
    {481, u"Imagen no válida"},
    {482, u"Error de impresora"},
    {735, u"No se puede guardar el archivo en TEMP"},
    {744, u"No se ha encontrado el texto de búsqueda"},
    {746, u"Reemplazos demasiado largos"},
};

constexpr char16_t unnamedDescription[] = u"Error definido por la aplicación o el objeto";
constexpr std::int32_t lastNumber = 0xFFFF;
constexpr std::uint32_t controlFacility = 0x800A0000u;

struct CodeNumber {
    std::uint32_t code;
    std::int32_t number;
};

// Failure codes of the system with a number of their own.
constexpr CodeNumber codes[] = {
    {0x80004001u, 445}, // E_NOTIMPL
    {0x80004002u, 430}, // E_NOINTERFACE
    {0x80020001u, 438}, // DISP_E_UNKNOWNINTERFACE
    {0x80020003u, 438}, // DISP_E_MEMBERNOTFOUND
    {0x80020004u, 448}, // DISP_E_PARAMNOTFOUND
    {0x80020005u, 13},  // DISP_E_TYPEMISMATCH
    {0x80020006u, 438}, // DISP_E_UNKNOWNNAME
    {0x80020007u, 446}, // DISP_E_NONAMEDARGS
    {0x80020008u, 458}, // DISP_E_BADVARTYPE
    {0x8002000Au, 6},   // DISP_E_OVERFLOW
    {0x8002000Bu, 9},   // DISP_E_BADINDEX
    {0x8002000Cu, 447}, // DISP_E_UNKNOWNLCID
    {0x8002000Du, 10},  // DISP_E_ARRAYISLOCKED
    {0x8002000Eu, 450}, // DISP_E_BADPARAMCOUNT
    {0x8002000Fu, 449}, // DISP_E_PARAMNOTOPTIONAL
    {0x80020011u, 451}, // DISP_E_NOTACOLLECTION
    {0x80020012u, 11},  // DISP_E_DIVBYZERO
    {0x80030002u, 53},  // STG_E_FILENOTFOUND
    {0x80030003u, 76},  // STG_E_PATHNOTFOUND
    {0x80030005u, 70},  // STG_E_ACCESSDENIED
    {0x8007000Eu, 7},   // E_OUTOFMEMORY
    {0x80070005u, 70},  // E_ACCESSDENIED
    {0x80070057u, 5},   // E_INVALIDARG
    {0x800401E3u, 429}, // MK_E_UNAVAILABLE
    {0x80040154u, 429}, // REGDB_E_CLASSNOTREG
};

} // namespace

Error::Error(std::int32_t number) : Error(number, descriptionOf(number)) {}

Error::Error(std::int32_t number, String description, String source)
    : number_(number), description_(std::move(description)), source_(std::move(source)),
      what_(description_.utf8()) {}

HResult Error::hresultOf(std::int32_t number) noexcept {
    if (number < 1 || number > lastNumber) return number;
    return static_cast<HResult>(controlFacility + static_cast<std::uint32_t>(number));
}

std::int32_t Error::numberOf(HResult code) noexcept {
    const auto bits = static_cast<std::uint32_t>(code);
    if ((bits & ~static_cast<std::uint32_t>(lastNumber)) == controlFacility) return bits & lastNumber;
    for (const CodeNumber& known : codes)
        if (known.code == bits) return known.number;
    return code;
}

String Error::descriptionOf(std::int32_t number) {
    const auto* found = std::lower_bound(std::begin(descriptions), std::end(descriptions), number,
                                         [](const Description& d, std::int32_t n) { return d.number < n; });
    if (found != std::end(descriptions) && found->number == number) return found->text;
    return unnamedDescription;
}

void throwTypeMismatch() {
    throw Error(errors::TypeMismatch);
}

void throwError(std::int32_t number) {
    throw Error(number);
}

} // namespace automation
