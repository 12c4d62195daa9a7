pragma Singleton
import QtQml 2.15

/*!
    Creates objects at run time.
*/
QtObject {
    /*!
        A new object of a component, or of the QML file at a URL (absolute, or made so by Qt.resolvedUrl() where
        it is written), with these first values of its properties. Without a parent the object lives as long as
        it is referred to.

        Null, after a warning that names the URL and the error, when the object cannot be created or the file is
        not local.
    */
    function create(source, parent, properties) : QtObject {
        const component = !source || source.createObject ? source : Qt.createComponent(source)
        const object = component && component.status === Component.Ready
                     ? component.createObject(parent || null, properties || {}) : null
        if (!object)
            console.warn("ObjectFactory: cannot create " + (component ? component.url : source) + ": "
                         + _reason(component))
        return object
    }

    function _reason(component) : string {
        if (!component)
            return "it is no component and no URL"
        return component.errorString().trim()
                || (component.status === Component.Loading ? "the file is not local" : "the component refused")
    }
}
